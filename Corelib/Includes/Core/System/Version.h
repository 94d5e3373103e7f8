#pragma once

#include <Core/System/ICloneable.h>
#include <Core/System/IComparable.h>
#include <Core/System/IHashable.h>
#include <Core/System/Object.h>
#include <Core/System/Runtime/Serialization/ISerializable.h>

#include <compare>

namespace Tesmo::System
{
/// A version of two to four numbers: "1.2", "1.2.3", "1.2.3.4".
class Version : public Object,
                public ICloneable,
                public IComparable,
                public IHashable,
                public Runtime::Serialization::ISerializable
{
public:
    /// "0.0"
    Version() = default;
    /// @throws ArgumentOutOfRangeException  a number is negative
    Version(int major, int minor);
    Version(int major, int minor, int build);
    Version(int major, int minor, int build, int revision);

    /// Reads up to four numbers with "." between them. Missing ones count as 0 in the first two places and as not given
    /// in the others.
    /// @throws ArgumentNullException        text is null
    /// @throws FormatException              a part is no number, or there are more than four
    /// @throws OverflowException            a part does not fit 32 bits
    /// @throws ArgumentOutOfRangeException  a part is negative
    static Version Parse(const String& text);

    /// 0 or more; so are Build and Revision where they are given.
    int Major() const
    {
        return majorNumber;
    }
    int Minor() const
    {
        return minorNumber;
    }
    int Build() const ///< -1 when not given
    {
        return buildNumber;
    }
    int Revision() const ///< -1 when not given
    {
        return revisionNumber;
    }

    bool operator==(const Version& other) const; ///< false for null
    std::strong_ordering operator<=>(const Version& other) const;

    String ToString() const override;
    bool Equals(const Object& other) const override;
    int CompareTo(const IComparable& other) const override; ///< 1 for null and for another class
    int GetHashCode() const override;
    Object* Clone() const override;

private:
    // The plain names are macros of a system header (sys/sysmacros.h).
    int majorNumber = 0;
    int minorNumber = 0;
    int buildNumber = -1;
    int revisionNumber = -1;
};
} // namespace Tesmo::System
