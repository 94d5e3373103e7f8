#pragma once

#include <Core/System/Object.h>
#include <typeinfo>

namespace Tesmo::System
{
/// The run-time type of an object, and how class names read.
class Type : public Object
{
public:
    /// The type Type itself.
    Type();
    explicit Type(const std::type_info& info);
    /// @throws ArgumentNullException  other is null
    Type(const Type& other);
    Type& operator=(const Type& other);

    /// The last component of the name, template arguments included: "List<int>".
    String Name() const;

    /// What stands before Name, without the "::"; the whole name where there is no "::".
    String Namespace() const;

    /// True for a Type of the same class.
    bool Equals(const Object& other) const override;

    /// The full name without const, pointer marks and the keywords class, struct, enum and union.
    String ToString() const override;

private:
    const std::type_info* info;
};
} // namespace Tesmo::System
