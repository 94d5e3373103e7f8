#pragma once

#include <Core/System/ArrayDeclaration.h>
#include <Core/System/Char32.h>
#include <Core/System/Collections/Generic/IEnumerable.h>
#include <Core/System/Convertible.h>
#include <Core/System/FormatArgument.h>
#include <Core/System/ICloneable.h>
#include <Core/System/IComparable.h>
#include <Core/System/IHashable.h>
#include <Core/System/Object.h>
#include <Core/System/Sp.h>
#include <Core/System/StringSplitOptions.h>
#include <Core/System/UString.h>
#include <Core/System/Up.h>

#include <concepts>
#include <string>

namespace Tesmo::System
{
namespace Detail
{
template <class C>
concept Character = std::same_as<C, char32> || std::same_as<C, char> || std::same_as<C, char32_t>;
} // namespace Detail

/// The program's only text type: immutable but for assignment, held as UTF-8. Lengths and indexes count code points.
/// A null reference at any position gives ArgumentNullException, an index or count out of range
/// ArgumentOutOfRangeException, unless an operation says otherwise. Concurrent reading is safe.
class String : public Object,
               public IHashable,
               public ICloneable,
               public IComparable,
               public Convertible<String>,
               public Collections::Generic::IEnumerable<char32>
{
public:
    class Enumerator;
    class ReverseEnumerator;

    String() = default;
    /// Takes the bytes as UTF-8 without checking.
    /// @throws ArgumentNullException  text is a null pointer
    String(const char* text);
    /// Takes the bytes as UTF-8 without checking; they may hold zeros.
    explicit String(std::string utf8);
    explicit String(ustring text);
    String(const String& other);
    String(String&& other) noexcept = default;
    /// count copies of c.
    String(char32 c, int count);
    String(const Array<char32, 1>& characters);
    String(const Array<char32, 1>& characters, int startIndex);
    String(const Array<char32, 1>& characters, int startIndex, int length);

    /// The text whose code points are the values of size bytes, zeros included (the ISO 8859-1 reading).
    static String FromLatin1(const unsigned char* bytes, int size);

    String& operator=(const String& other);
    String& operator=(String&& other) noexcept = default;
    String& operator=(const char* text); ///< UTF-8, not checked

    bool Equals(const Object& other) const override; ///< null throws here; another class gives false
    String ToString() const override;
    ~String() override = default;
    virtual bool Equals(const String& other) const;  ///< false for null
    virtual bool IsSigned() const;                   ///< false: a text is no number with a sign
    virtual bool Contains(const String& text) const; ///< true for an empty text
    /// A walk from the last code point to the first.
    virtual Up<Collections::Generic::IEnumerator<char32>> GetReverseEnumerator() const;

    int GetHashCode() const override; ///< h = h * 5 + c over the code points; fixes the walk order of dictionaries
    Object* Clone() const override;
    int CompareTo(const IComparable& other) const override;
    Up<Collections::Generic::IEnumerator<char32>> GetEnumerator() const override;

    int Length() const ///< in code points
    {
        return value.Length();
    }
    /// True for a text of no code points; bytes that form none do not count.
    bool IsEmpty() const
    {
        return value.Length() == 0;
    }
    /// Walks from the start, so it is linear; a loop over a text uses Text() or an enumerator.
    char32 operator[](int index) const;
    /// The UTF-8 bytes.
    const std::string& Utf8() const
    {
        return value.Bytes();
    }
    /// The storage, for walks over the code points.
    const ustring& Text() const
    {
        return value;
    }

    bool operator==(const String& other) const; ///< false for null
    /// Appends. A text that is built in a loop grows in its place, without a copy at each step.
    String& operator+=(const String& other);
    template <Detail::Character C> // a number would convert
    String& operator+=(C c)
    {
        value.Append(char32(c));
        return *this;
    }

    /// The texts one behind the other, nothing between them.
    static String Concat(const String& a, const String& b);
    static String Concat(const String& a, const String& b, const String& c);
    static String Concat(const String& a, const String& b, const String& c, const String& d);
    static String Concat(const Collections::Generic::IEnumerable<String>& values);

    /// A null on the left sorts first (-1, or 0 when both are null), a null on the right gives 1.
    static int Compare(const String& strA, const String& strB);
    static int Compare(const String& strA, const String& strB, bool ignoreCase);
    static int Compare(const String& strA, int indexA, const String& strB, int indexB, int length);
    static int Compare(const String& strA, int indexA, const String& strB, int indexB, int length, bool ignoreCase);

    /// Searches count code points and give -1 when nothing is found.
    int IndexOf(char32 c) const;
    int IndexOf(char32 c, int startIndex) const;
    int IndexOf(char32 c, int startIndex, int count) const;
    int IndexOf(const String& text) const;
    int IndexOf(const String& text, int startIndex) const;
    int IndexOf(const String& text, int startIndex, int count) const;
    /// The backward searches begin at startIndex and end count code points before it.
    int LastIndexOf(char32 c) const;
    int LastIndexOf(char32 c, int startIndex) const;
    int LastIndexOf(char32 c, int startIndex, int count) const;
    int LastIndexOf(const String& text) const;
    int LastIndexOf(const String& text, int startIndex) const;
    int LastIndexOf(const String& text, int startIndex, int count) const;
    int IndexOfAny(const Array<char32, 1>& anyOf) const;
    int IndexOfAny(const Array<char32, 1>& anyOf, int startIndex) const;
    int IndexOfAny(const Array<char32, 1>& anyOf, int startIndex, int count) const;
    int LastIndexOfAny(const Array<char32, 1>& anyOf) const;
    int LastIndexOfAny(const Array<char32, 1>& anyOf, int startIndex) const;
    int LastIndexOfAny(const Array<char32, 1>& anyOf, int startIndex, int count) const;
    bool StartsWith(const String& text) const;
    bool StartsWith(const String& text, bool ignoreCase) const;
    bool EndsWith(const String& text) const;
    bool EndsWith(const String& text, bool ignoreCase) const;

    /// From startIndex to the end; empty at startIndex Length().
    String Substring(int startIndex) const;
    /// A length past the end is cut down; -1 means all that remains.
    String Substring(int startIndex, int length) const;
    String Insert(int startIndex, const String& text) const;
    String Remove(int startIndex) const;
    String Remove(int startIndex, int count) const;
    String Replace(char32 oldChar, char32 newChar) const;
    String Replace(const String& oldValue, const String& newValue) const; ///< an empty oldValue changes nothing
    String PadLeft(int totalWidth) const;                                 ///< pads with blanks (code 32)
    String PadLeft(int totalWidth, char32 paddingChar) const;
    String PadRight(int totalWidth) const;
    String PadRight(int totalWidth, char32 paddingChar) const;
    String ToLower() const;
    String ToUpper() const;
    String Trim(char32 trimChar) const;
    String Trim(const Array<char32, 1>& trimChars) const;
    String TrimStart(char32 trimChar) const;
    String TrimStart(const Array<char32, 1>& trimChars) const;
    String TrimEnd(char32 trimChar) const;
    String TrimEnd(const Array<char32, 1>& trimChars) const;
    static String Join(const String& separator, const Array<String, 1>& values);
    static String Join(const String& separator, const Array<String, 1>& values, int startIndex, int count);
    /// count is the most entries to make: the last one takes the rest. A separator at the end makes no entry behind it.
    Sp<Array<String, 1>> Split(char32 separator) const;
    Sp<Array<String, 1>> Split(const Array<char32, 1>& separators) const;
    Sp<Array<String, 1>> Split(const Array<char32, 1>& separators, int count) const;
    Sp<Array<String, 1>> Split(const Array<char32, 1>& separators, int count, StringSplitOptions options) const;
    Array<char32, 1> ToCharArray() const;
    Array<char32, 1> ToCharArray(int startIndex, int length) const;
    /// The text in code page 437 with a zero byte behind it: Length() + 1 bytes. What the page lacks becomes '?'.
    Up<char[]> ToCCharArray() const;

    /// Composite formatting: "{index[,alignment][:format]}" stands for an argument, "{{" and "}}" for the brackets,
    /// "{uXXXX}" for a code point. An argument is a primitive, a const char* or any Object.
    /// @throws FormatException  a bracket without its partner, or an index without an argument
    template <Formattable... Args>
    static String Format(const String& format, const Args&... args)
    {
        return Format(FormatProvider::Default(), format, args...);
    }
    template <Formattable... Args>
    static String Format(const IFormatProvider& provider, const String& format, const Args&... args)
    {
        const FormatArgument arguments[sizeof...(Args) + 1] = {FormatArgument(args)...};
        return FormatArguments(provider, format, arguments, static_cast<int>(sizeof...(Args)));
    }
    /// The same with the arguments in an array; an empty entry counts as null.
    static String Format(const String& format, const Array<Sp<Object>, 1>& args);
    static String Format(const IFormatProvider& provider, const String& format, const Array<Sp<Object>, 1>& args);

    TypeCode GetTypeCode() const override;

private:
    friend class Convertible<String>;
    template <class T>
    T ConvertTo() const;

    static String FormatArguments(const IFormatProvider& provider, const String& format,
                                  const FormatArgument* arguments, int count);

    ustring value;
};

/// @throws ArgumentNullException  a text is null, or a null pointer
String operator+(const String& left, const String& right);
String operator+(const String& left, const char* right);
String operator+(const char* left, const String& right);

namespace Detail
{
/// @throws ArgumentNullException  object is null
String TextOf(const Object& object);

template <class L, class R>
concept TwoNumbers = std::convertible_to<L, double> && std::convertible_to<R, double>;
} // namespace Detail

/// An object contributes its ToString(). Two numbers add up as numbers.
template <std::derived_from<Object> L, std::derived_from<Object> R>
requires(!Detail::TwoNumbers<L, R>) String operator+(const L& left, const R& right)
{
    return Detail::TextOf(left) + Detail::TextOf(right);
}

/// An object beside a C string, which is read as UTF-8.
/// @throws ArgumentNullException  the object is null, or the C string a null pointer
template <std::derived_from<Object> L>
String operator+(const L& left, const char* right)
{
    return Detail::TextOf(left) + right;
}
template <std::derived_from<Object> R>
String operator+(const char* left, const R& right)
{
    return left + Detail::TextOf(right);
}

extern template class Convertible<String>;
} // namespace Tesmo::System
