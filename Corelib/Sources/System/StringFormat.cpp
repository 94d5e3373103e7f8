#include <Core/System/ArgumentNullException.h>
#include <Core/System/Array.h>
#include <Core/System/Boolean.h>
#include <Core/System/Checks.h>
#include <Core/System/FormatArgument.h>
#include <Core/System/FormatException.h>
#include <Core/System/NumericalFormat.h>
#include <Core/System/NumericalParsing.h>
#include <Core/System/String.h>
#include <Core/System/ThrowSite.h>
#include <Core/System/Utf8.h>

#include <algorithm>
#include <cstdlib>

namespace Tesmo::System
{
namespace
{
constexpr int SingleDigits = 7;
constexpr int DoubleDigits = 15;

bool IsContinuedBy(char bracket, std::string_view rest)
{
    return !rest.empty() && rest.front() == bracket;
}

/// Position of the first character for which stops is true; the size where there is none. The pieces of a format are
/// so short that a plain loop is faster than a call of the standard library's searches.
template <class Predicate>
std::size_t Scan(std::string_view text, Predicate stops)
{
    std::size_t at = 0;
    while (at < text.size() && !stops(text[at]))
    {
        ++at;
    }
    return at;
}

std::size_t Scan(std::string_view text, char sought)
{
    return Scan(text, [sought](char character) { return character == sought; });
}

int ParseInt(std::string_view text)
{
    if (text.size() == 1 && text.front() >= '0' && text.front() <= '9')
    {
        return text.front() - '0';
    }
    std::int64_t number = 0;
    NumericalParsing::ParseUtf8(text, 10, 32, number);
    return static_cast<int>(number);
}

/// Builds the text of a composite format: result grows while rest shrinks.
class CompositeFormatter
{
public:
    CompositeFormatter(const IFormatProvider& formatProvider, std::string_view format, const FormatArgument* list,
                       int size)
        : provider(formatProvider),
          rest(format),
          arguments(list),
          count(size)
    {
        std::size_t hint = format.size();
        for (int i = 0; i < count; ++i)
        {
            hint += arguments[i].SizeHint();
        }
        result.reserve(hint);
    }

    std::string Run()
    {
        while (!rest.empty())
        {
            const std::size_t plain = Scan(rest, [](char character) { return character == '{' || character == '}'; });
            result += rest.substr(0, plain);
            rest.remove_prefix(plain);
            if (!rest.empty())
            {
                const char bracket = rest.front();
                rest.remove_prefix(1);
                bracket == '}' ? Close() : Open();
            }
        }
        return std::move(result);
    }

private:
    void Close()
    {
        if (!IsContinuedBy('}', rest))
        {
            throw FormatException("Closing bracket '}' found without matching '{'", ThrowSite);
        }
        result += '}';
        rest.remove_prefix(1);
    }

    void Open()
    {
        if (IsContinuedBy('{', rest))
        {
            result += '{';
            rest.remove_prefix(1);
            return;
        }
        const std::size_t close = Scan(rest, '}');
        if (close == rest.size())
        {
            throw FormatException("An opened bracket '{' is not closed by '}'", ThrowSite);
        }
        const std::string_view item = rest.substr(0, close);
        rest.remove_prefix(close + 1);
        IsContinuedBy('u', item) || IsContinuedBy('U', item) ? AppendCodePoint(item.substr(1)) : AppendItem(item);
    }

    void AppendCodePoint(std::string_view hexadecimal)
    {
        std::uint64_t codePoint = 0;
        NumericalParsing::ParseUtf8(hexadecimal, 16, 32, codePoint);
        Utf8::Append(result, char32(static_cast<std::uint32_t>(codePoint)));
    }

    void AppendItem(std::string_view item)
    {
        const std::size_t colon = Scan(item, ':');
        const std::string_view head = item.substr(0, colon);
        const std::string_view formatString = item.substr(std::min(colon + 1, item.size()));
        const std::size_t comma = Scan(head, ',');
        const int alignment = comma == head.size() ? 0 : ParseInt(head.substr(comma + 1));
        const int index = ParseInt(head.substr(0, comma));
        if (index < 0 || index >= count)
        {
            throw FormatException(
                String::Format("Index out of bounds (used {0} where the number of Arguments is {1})", index, count),
                ThrowSite);
        }
        const std::size_t start = result.size();
        arguments[index].AppendTo(result, formatString, provider);
        if (alignment != 0)
        {
            Align(start, alignment);
        }
    }

    void Align(std::size_t start, int alignment)
    {
        const auto width = static_cast<std::size_t>(std::abs(static_cast<std::int64_t>(alignment)));
        const std::size_t length = Utf8::Count(std::string_view(result).substr(start));
        if (length < width)
        {
            result.insert(alignment > 0 ? start : result.size(), width - length, ' ');
        }
    }

    const IFormatProvider& provider;
    std::string_view rest;
    const FormatArgument* arguments;
    int count;
    std::string result;
};
} // namespace

void FormatArgument::AppendTo(std::string& result, std::string_view formatString, const IFormatProvider& provider) const
{
    switch (kind)
    {
    case Kind::Null:
        return;
    case Kind::Boolean:
        result += (unsignedValue != 0 ? Boolean::TrueString() : Boolean::FalseString()).Utf8();
        return;
    case Kind::Character:
        Utf8::Append(result, char32(static_cast<std::uint32_t>(unsignedValue)));
        return;
    case Kind::Signed:
        return NumericalFormat::Append(result, signedValue, bits, formatString);
    case Kind::Unsigned:
        return NumericalFormat::Append(result, unsignedValue, bits, formatString);
    case Kind::Single:
        return NumericalFormat::Append(result, floatValue, SingleDigits, formatString);
    case Kind::Double:
        return NumericalFormat::Append(result, floatValue, DoubleDigits, formatString);
    case Kind::Bytes:
        result += bytes;
        return;
    case Kind::Text:
        result += text->Utf8();
        return;
    case Kind::Formattable:
        result += formattable->ToString(String(std::string(formatString)), provider).Utf8();
        return;
    case Kind::Other:
        return AppendObject(result, formatString, provider);
    }
}

/// Appends an object whose static type told too little: it may be formattable or a String.
void FormatArgument::AppendObject(std::string& result, std::string_view formatString,
                                  const IFormatProvider& provider) const
{
    const auto* const asFormattable = dynamic_cast<const IFormattable*>(object);
    result += (asFormattable != nullptr ? asFormattable->ToString(String(std::string(formatString)), provider)
                                        : object->ToString())
                  .Utf8();
}

std::size_t FormatArgument::SizeHint() const
{
    constexpr std::size_t usual = 12;
    switch (kind)
    {
    case Kind::Text:
        return text->Utf8().size();
    case Kind::Bytes:
        return std::char_traits<char>::length(bytes);
    default:
        return usual;
    }
}

String String::FormatArguments(const IFormatProvider& provider, const String& format, const FormatArgument* arguments,
                               int count)
{
    NotNull(provider);
    NotNull(format);
    return String(CompositeFormatter(provider, format.Utf8(), arguments, count).Run());
}

String String::Format(const String& format, const Array<Sp<Object>, 1>& args)
{
    return Format(FormatProvider::Default(), format, args);
}

String String::Format(const IFormatProvider& provider, const String& format, const Array<Sp<Object>, 1>& args)
{
    NotNull(args);
    const int count = args.Length();
    const Up<FormatArgument[]> arguments(new FormatArgument[static_cast<std::size_t>(count)]);
    for (int i = 0; i < count; ++i)
    {
        const Sp<Object>& argument = args[i];
        if (argument != null)
        {
            arguments[static_cast<std::size_t>(i)] = FormatArgument(*argument);
        }
    }
    return FormatArguments(provider, format, arguments.Get(), count);
}
} // namespace Tesmo::System
