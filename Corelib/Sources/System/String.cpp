#include <Core/System/String.h>

#include <Core/System/Array.h>
#include <Core/System/Checks.h>
#include <Core/System/StringEnumerator.h>
#include <Core/System/StringReverseEnumerator.h>

namespace Tesmo::System
{
namespace
{
using Collections::Generic::IEnumerable;
using Collections::Generic::IEnumerator;

ustring Encode(const Array<char32>& characters, int startIndex, int length, CallSite site = CallSite::Here())
{
    CheckRange(startIndex, length, characters.Length(), site);
    ustring text;
    text.Reserve(static_cast<std::size_t>(length));
    for (int i = startIndex; i < startIndex + length; i++)
    {
        text.Append(characters[i]);
    }
    return text;
}
} // namespace

String::String(const char* text) : value(std::string(NotNull(text))) {}

String::String(std::string utf8) : value(std::move(utf8)) {}

String::String(ustring text) : value(std::move(text)) {}

String::String(const String& other)
    : Object(),
      IHashable(),
      ICloneable(),
      IComparable(),
      Convertible(),
      IEnumerable<char32>(),
      value(NotNull(other).value)
{
}

String::String(char32 c, int count) : value(c, static_cast<std::size_t>(NotNegative(count))) {}

String::String(const Array<char32>& characters) : value(Encode(NotNull(characters), 0, NotNull(characters).Length())) {}

String::String(const Array<char32>& characters, int startIndex)
    : value(Encode(NotNull(characters), startIndex, CountFrom(startIndex, NotNull(characters).Length())))
{
}

String::String(const Array<char32>& characters, int startIndex, int length)
    : value(Encode(NotNull(characters), startIndex, length))
{
}

String String::FromLatin1(const unsigned char* bytes, int size)
{
    NotNegative(size);
    if (size > 0)
    {
        NotNull(bytes);
    }
    return String(ustring::FromLatin1(bytes, static_cast<std::size_t>(size)));
}

String& String::operator=(const String& other)
{
    value = NotNull(other).value;
    return *this;
}

String& String::operator=(const char* text)
{
    value = ustring(std::string(NotNull(text)));
    return *this;
}

String String::ToString() const
{
    return *this;
}

bool String::IsSigned() const
{
    return false;
}

Object* String::Clone() const
{
    return new String(*this);
}

Up<IEnumerator<char32>> String::GetEnumerator() const
{
    return Up<IEnumerator<char32>>(new Enumerator(*this));
}

Up<IEnumerator<char32>> String::GetReverseEnumerator() const
{
    return Up<IEnumerator<char32>>(new ReverseEnumerator(*this));
}

char32 String::operator[](int index) const
{
    return *value.From(static_cast<std::size_t>(CheckIndex(index, Length())));
}

String& String::operator+=(const String& other)
{
    value.Append(NotNull(other).value);
    return *this;
}

String String::Concat(const String& a, const String& b)
{
    return a + b;
}

String String::Concat(const String& a, const String& b, const String& c)
{
    return a + b + c;
}

String String::Concat(const String& a, const String& b, const String& c, const String& d)
{
    return a + b + c + d;
}

String String::Concat(const IEnumerable<String>& values)
{
    NotNull(values);
    String result;
    for (const Up<IEnumerator<String>> walk = values.GetEnumerator(); walk->MoveNext();)
    {
        result += walk->Current();
    }
    return result;
}

Array<char32> String::ToCharArray() const
{
    return ToCharArray(0, Length());
}

Array<char32> String::ToCharArray(int startIndex, int length) const
{
    CheckRange(startIndex, length, Length());
    Array<char32> characters(length);
    auto position = value.From(static_cast<std::size_t>(startIndex));
    for (char32& character : characters)
    {
        character = *position;
        ++position;
    }
    return characters;
}

String operator+(const String& left, const String& right)
{
    NotNull(left);
    NotNull(right);
    ustring text;
    text.Reserve(left.Utf8().size() + right.Utf8().size());
    text.Append(left.Text());
    text.Append(right.Text());
    return String(std::move(text));
}

String operator+(const String& left, const char* right)
{
    return left + String(right);
}

String operator+(const char* left, const String& right)
{
    return String(left) + right;
}

String Detail::TextOf(const Object& object)
{
    return NotNull(object).ToString();
}
} // namespace Tesmo::System
