#pragma once

#include <Core/System/ArrayDeclaration.h>
#include <Core/System/Object.h>
#include <Core/System/String.h>

namespace Tesmo::System
{
/// Pseudo-random numbers from the standard library's generator, 15 bits a draw. The generator has one state for the
/// whole process, so that two objects disturb one another.
class Random : public Object
{
public:
    /// Seeds from the present moment.
    Random();
    explicit Random(int seed);

    bool Equals(const Object& other) const override;
    String ToString() const override;
    ~Random() override = default;

    /// minValue to maxValue, which may come out itself.
    /// @throws ArgumentOutOfRangeException  minValue is above maxValue
    virtual int Next(int minValue, int maxValue);
    /// 0 to maxValue.
    virtual int Next(int maxValue);
    /// 0 to 2147483647.
    virtual int Next();

    /// Fills buffer with numbers from 0 to 255.
    /// @throws ArgumentNullException  buffer is null
    virtual void NextBytes(Array<unsigned char>& buffer);

    /// 0.0 to 1.0, which may come out itself.
    virtual double NextDouble();
    virtual double Sample();
};
} // namespace Tesmo::System
