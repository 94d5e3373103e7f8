#include <Core/System/Type.h>

#include <Core/System/ArgumentNullException.h>
#include <Core/System/Checks.h>
#include <Core/System/String.h>

#include <algorithm>
#include <cstdlib>
#include <cxxabi.h>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>

namespace Tesmo::System
{
namespace
{
void Replace(std::string& text, std::string_view part, std::string_view other)
{
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + other.size()))
    {
        text.replace(at, part.size(), other);
    }
}

void Delete(std::string& text, std::string_view part)
{
    Replace(text, part, "");
}

bool ContainsOneOf(const std::string& text, std::initializer_list<std::string_view> parts)
{
    return std::any_of(parts.begin(), parts.end(),
                       [&text](std::string_view part) { return text.find(part) != std::string::npos; });
}

/// The name in source form: what the compiler's demangler spells differently is replaced by the language's spelling.
std::string Demangle(const char* name)
{
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> demangled(abi::__cxa_demangle(name, nullptr, nullptr, &status),
                                                                &std::free);
    std::string text = demangled == nullptr ? name : demangled.get();
    Delete(text, "__cxx11::");
    Replace(text, "decltype(nullptr)", "std::nullptr_t");
    return text;
}

/// Position behind the "::" that begins the last component; npos without one.
std::size_t LastComponent(const std::string& name)
{
    const std::size_t separator = std::string_view(name).substr(0, name.find('<')).rfind("::");
    return separator == std::string_view::npos ? std::string::npos : separator + 2;
}
} // namespace

Type::Type() : info(&typeid(Type)) {}

Type::Type(const std::type_info& typeInfo) : info(&typeInfo) {}

Type::Type(const Type& other) : Object(), info(NotNull(other).info) {}

Type& Type::operator=(const Type& other)
{
    info = NotNull(other).info;
    return *this;
}

String Type::Name() const
{
    const std::string name = ToString().Utf8();
    const std::size_t component = LastComponent(name);
    return String(component == std::string::npos ? name : name.substr(component));
}

String Type::Namespace() const
{
    const std::string name = ToString().Utf8();
    const std::size_t component = LastComponent(name);
    return String(component == std::string::npos ? name : name.substr(0, component - 2));
}

bool Type::Equals(const Object& other) const
{
    if (IsNull(other))
    {
        return false;
    }
    const auto* const type = dynamic_cast<const Type*>(&other);
    return type != nullptr && *info == *type->info;
}

String Type::ToString() const
{
    std::string name = Demangle(info->name());
    for (const std::string_view keyword : {"enum ", "class ", "union ", "struct "})
    {
        Delete(name, keyword);
    }
    if (ContainsOneOf(name, {"std::tuple", "System::Func", "System::Delegate", "System::Action", "Tesmo::Fp"}))
    {
        Delete(name, ", std::nullptr_t");
    }
    if (ContainsOneOf(name, {"System::Tuple"}))
    {
        Delete(name, ", System::NullType");
    }
    name.erase(name.find_last_not_of('*') + 1);
    Delete(name, " const");
    Delete(name, "const ");
    return String(std::move(name));
}
} // namespace Tesmo::System
