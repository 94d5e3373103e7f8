#pragma once

#include <Core/System/Char32.h>
#include <Core/System/FormatProvider.h>
#include <Core/System/IFormattable.h>
#include <Core/System/Object.h>

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>

namespace Tesmo::System
{
/// One argument of String::Format: a primitive by value, a C string or an Object by address. It allocates nothing and
/// must not outlive what it points to. A null argument has the empty text.
class FormatArgument
{
public:
    /// Implicit, so that Format takes its arguments as they are. A char is read as ISO 8859-1, a C string as UTF-8; a
    /// null pointer is a null argument.
    FormatArgument() = default;
    FormatArgument(const Null&) {}
    FormatArgument(char32 value) : kind(Kind::Character), unsignedValue(value.value) {}
    FormatArgument(char32_t value) : FormatArgument(char32(value)) {}
    FormatArgument(char value) : FormatArgument(char32(value)) {}
    FormatArgument(float value) : kind(Kind::Single), floatValue(static_cast<double>(value)) {}
    FormatArgument(double value) : kind(Kind::Double), floatValue(value) {}
    FormatArgument(const char* value) : kind(value == nullptr ? Kind::Null : Kind::Bytes), bytes(value) {}
    FormatArgument(const String& value) : kind(IsNull(value) ? Kind::Null : Kind::Text), text(&value) {}

    /// The width is kept: hexadecimal shows a negative number in two's complement of that width.
    template <std::signed_integral T>
    FormatArgument(T value) : kind(Kind::Signed),
                              bits(sizeof(T) * 8),
                              signedValue(value)
    {
    }

    /// A truth value is one of these; as a parameter of its own it would take any pointer.
    template <std::unsigned_integral T>
    FormatArgument(T value)
        : kind(std::same_as<T, bool> ? Kind::Boolean : Kind::Unsigned),
          bits(sizeof(T) * 8),
          unsignedValue(value)
    {
    }

    /// Its text is that of IFormattable by the format, where the class has it, else ToString().
    template <std::derived_from<Object> T>
    FormatArgument(const T& value)
    {
        if (IsNull(value))
        {
            return;
        }
        if constexpr (std::derived_from<T, IFormattable>)
        {
            kind = Kind::Formattable;
            formattable = &value;
        }
        else
        {
            kind = Kind::Other;
            object = &value;
        }
    }

    /// Appends the argument's text by formatString.
    void AppendTo(std::string& result, std::string_view formatString, const IFormatProvider& provider) const;

    /// Bytes of text to expect; an estimate.
    std::size_t SizeHint() const;

private:
    enum class Kind : std::uint8_t
    {
        Null,
        Boolean,
        Character,
        Signed,
        Unsigned,
        Single,
        Double,
        Bytes,
        Text,
        Formattable,
        Other,
    };

    void AppendObject(std::string& result, std::string_view formatString, const IFormatProvider& provider) const;

    Kind kind = Kind::Null;
    std::uint8_t bits = 0; ///< width of an integer
    union
    {
        std::int64_t signedValue;
        std::uint64_t unsignedValue = 0;
        double floatValue;
        const char* bytes;
        const String* text;
        const IFormattable* formattable;
        const Object* object;
    };
};

/// What String::Format takes. A pointer is none.
template <class T>
concept Formattable = std::constructible_from<FormatArgument, const T&>;
} // namespace Tesmo::System
