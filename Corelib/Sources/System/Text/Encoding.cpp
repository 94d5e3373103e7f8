#include <Core/System/Text/Encoding.h>

#include <Core/System/Checks.h>
#include <Core/System/NotSupportedException.h>
#include <Core/System/Text/ASCIIEncoding.h>
#include <Core/System/Text/CodePage28591Encoding.h>
#include <Core/System/Text/CodePage28592Encoding.h>
#include <Core/System/Text/CodePage437Encoding.h>
#include <Core/System/Text/UTF32Encoding.h>
#include <Core/System/Text/UTF8Encoding.h>
#include <Core/System/Text/UnicodeEncoding.h>

#include <algorithm>
#include <iterator>
#include <span>
#include <typeinfo>
#include <utility>
#include <vector>

namespace Tesmo::System::Text
{
namespace
{
struct Member
{
    const char* webName;
    int codePage;
    Encoding* (*make)();
};

template <class E, auto... Flags>
Encoding* Make()
{
    return new E(Flags...);
}

constexpr Member family[] = {
    {"us-ascii", 20127, Make<ASCIIEncoding>},
    {"iso-8859-1", 28591, Make<CodePage28591Encoding>},
    {"iso-8859-2", 28592, Make<CodePage28592Encoding>},
    {"utf-8", 65001, Make<UTF8Encoding, true>},
    {"utf-16", 1200, Make<UnicodeEncoding, false, true>},
    {"unicodeFFFE", 1201, Make<UnicodeEncoding, true, true>},
    {"IBM437", 437, Make<CodePage437Encoding>},
    {"utf-32", 12000, Make<UTF32Encoding, false, true>},
    {"utf-32BE", 12001, Make<UTF32Encoding, true, true>},
};

template <class Predicate>
const Member& Find(Predicate matches)
{
    const auto* const member = std::find_if(std::begin(family), std::end(family), matches);
    if (member == std::end(family))
    {
        throw NotSupportedException(ThrowSite);
    }
    return *member;
}

const Member& Find(int codePage)
{
    return Find([codePage](const Member& member) { return member.codePage == codePage; });
}

template <class T>
void CheckBuffer(const Array<T>& buffer, int index, int count, CallSite site)
{
    if (count > 0)
    {
        NotNull(buffer, site);
    }
    System::CheckRange(index, count, IsNull(buffer) ? 0 : buffer.Length(), site);
}

/// Does not touch a null buffer, which CheckBuffer allows if count is 0.
std::span<const char32> Range(const Encoding::CharArray& chars, int index, int count)
{
    return count == 0 ? std::span<const char32>() : std::span(chars.begin() + index, static_cast<std::size_t>(count));
}

template <class Chars>
std::vector<unsigned char> Encode(const Encoding& encoding, const Chars& chars, int sizeHint)
{
    std::vector<unsigned char> result;
    result.reserve(static_cast<std::size_t>(sizeHint));
    const Up<Encoding::Encoder> encoder = encoding.CreateEncoder();
    for (const char32 c : chars)
    {
        const Encoding::Encoder::Bytes bytes = encoder->Encode(c);
        for (int i = 0; i < bytes.count; i++)
        {
            result.push_back(bytes.values[static_cast<std::size_t>(i)]);
        }
    }
    return result;
}

int Fill(Encoding::ByteArray& bytes, int index, const unsigned char* source, int count,
         CallSite site = CallSite::Here())
{
    CheckBuffer(bytes, index, count, site);
    std::copy_n(source, count, count == 0 ? nullptr : bytes.begin() + index);
    return count;
}

template <class Chars>
int CountBytes(const Encoding& encoding, const Chars& chars)
{
    int count = 0;
    for (const char32 c : chars)
    {
        count += encoding.GetByteCount(c);
    }
    return count;
}

template <class Receiver>
void Decode(const Encoding& encoding, const Encoding::ByteArray& bytes, int index, int count, Receiver receive)
{
    const Up<Encoding::Decoder> decoder = encoding.CreateDecoder();
    for (int i = 0; i < count; i++)
    {
        if (const std::optional<char32> c = decoder->Decode(bytes.begin()[index + i]))
        {
            receive(*c);
        }
    }
}
} // namespace

Up<Encoding> Encoding::ASCII()
{
    return GetEncoding(20127);
}

Up<Encoding> Encoding::UTF8()
{
    return GetEncoding(65001);
}

Up<Encoding> Encoding::Unicode()
{
    return GetEncoding(1200);
}

Up<Encoding> Encoding::BigEndianUnicode()
{
    return GetEncoding(1201);
}

Up<Encoding> Encoding::UTF32()
{
    return GetEncoding(12000);
}

Up<Encoding> Encoding::GetEncoding(int codePage)
{
    return Up<Encoding>(Find(codePage).make());
}

Up<Encoding> Encoding::GetEncoding(const String& webName)
{
    NotNull(webName);
    return GetEncoding(Find([&webName](const Member& member) { return webName.Utf8() == member.webName; }).codePage);
}

Encoding::ByteArray Encoding::Convert(const Encoding& source, const Encoding& destination, const ByteArray& bytes)
{
    NotNull(source);
    NotNull(destination);
    return destination.GetBytes(source.GetChars(bytes));
}

Encoding::ByteArray Encoding::Convert(const Encoding& source, const Encoding& destination, const ByteArray& bytes,
                                      int index, int count)
{
    NotNull(source);
    NotNull(destination);
    return destination.GetBytes(source.GetChars(bytes, index, count));
}

Encoding::Encoding(int ownCodePage) : codePage(ownCodePage) {}

bool Encoding::Equals(const Object& other) const
{
    const auto* const encoding = IsNull(other) ? nullptr : dynamic_cast<const Encoding*>(&other);
    return encoding != nullptr && codePage == encoding->codePage;
}

String Encoding::ToString() const
{
    return WebName();
}

int Encoding::CodePage() const
{
    return codePage;
}

String Encoding::WebName() const
{
    return Find(codePage).webName;
}

bool Encoding::IsSingleByte() const
{
    return false;
}

int Encoding::GetBytes(char32 c, ByteArray& bytes, int index) const
{
    NotNull(bytes);
    NotNegative(index);
    const Encoder::Bytes encoded = CreateEncoder()->Encode(c);
    return Fill(bytes, index, encoded.values.data(), encoded.count);
}

int Encoding::GetCharCount(const ByteArray& bytes, int index, int count) const
{
    CheckRange(bytes, index, count);
    int charCount = 0;
    Decode(*this, bytes, index, count, [&charCount](char32) { charCount++; });
    return charCount;
}

int Encoding::GetMaxByteCount(int charCount) const
{
    return NotNegative(charCount);
}

int Encoding::GetMaxCharCount(int byteCount) const
{
    return NotNegative(byteCount);
}

Encoding::ByteArray Encoding::GetPreamble() const
{
    return ByteArray(0);
}

Encoding& Encoding::operator=(const Encoding& other)
{
    const Encoding& source = NotNull(other);
    if (typeid(*this) != typeid(source))
    {
        throw ArgumentException(ThrowSite);
    }
    codePage = source.codePage;
    return *this;
}

Encoding::ByteArray Encoding::GetBytes(const String& text) const
{
    if (NotNull(text).Text().IsAscii() && GetByteCount(char32('a')) == 1)
    {
        // An encoding with one byte for an ASCII character uses that character's own number.
        return ByteArray(std::vector<unsigned char>(text.Utf8().begin(), text.Utf8().end()));
    }
    return ByteArray(Encode(*this, NotNull(text).Text(), NotNull(text).Length()));
}

Encoding::ByteArray Encoding::GetBytes(const CharArray& chars) const
{
    return GetBytes(chars, 0, NotNull(chars).Length());
}

Encoding::ByteArray Encoding::GetBytes(const CharArray& chars, int index, int count) const
{
    CheckRange(chars, index, count);
    return ByteArray(Encode(*this, Range(chars, index, count), count));
}

int Encoding::GetBytes(const String& text, int index, int count, ByteArray& bytes, int byteIndex) const
{
    return GetBytes(NotNull(text).ToCharArray(index, count), 0, count, bytes, byteIndex);
}

int Encoding::GetBytes(const CharArray& chars, int index, int count, ByteArray& bytes, int byteIndex) const
{
    CheckRange(chars, index, count);
    NotNull(bytes);
    NotNegative(byteIndex);
    const std::vector<unsigned char> encoded = Encode(*this, Range(chars, index, count), count);
    return Fill(bytes, byteIndex, encoded.data(), static_cast<int>(encoded.size()));
}

int Encoding::GetByteCount(const String& text) const
{
    return CountBytes(*this, NotNull(text).Text());
}

int Encoding::GetByteCount(const CharArray& chars) const
{
    return GetByteCount(chars, 0, NotNull(chars).Length());
}

int Encoding::GetByteCount(const CharArray& chars, int index, int count) const
{
    CheckRange(chars, index, count);
    return CountBytes(*this, Range(chars, index, count));
}

Encoding::CharArray Encoding::GetChars(const ByteArray& bytes) const
{
    return GetChars(bytes, 0, NotNull(bytes).Length());
}

Encoding::CharArray Encoding::GetChars(const ByteArray& bytes, int index, int count) const
{
    CheckRange(bytes, index, count);
    std::vector<char32> chars;
    chars.reserve(static_cast<std::size_t>(count));
    Decode(*this, bytes, index, count, [&chars](char32 c) { chars.push_back(c); });
    return CharArray(std::move(chars));
}

int Encoding::GetCharCount(const ByteArray& bytes) const
{
    return GetCharCount(bytes, 0, NotNull(bytes).Length());
}

String Encoding::GetString(const ByteArray& bytes) const
{
    return GetString(bytes, 0, NotNull(bytes).Length());
}

String Encoding::GetString(const ByteArray& bytes, int index, int count) const
{
    CheckRange(bytes, index, count);
    ustring text;
    text.Reserve(static_cast<std::size_t>(count));
    Decode(*this, bytes, index, count, [&text](char32 c) { text.Append(c); });
    return String(std::move(text));
}

void Encoding::CheckRange(const ByteArray& bytes, int index, int count, CallSite site)
{
    CheckBuffer(bytes, index, count, site);
}

void Encoding::CheckRange(const CharArray& chars, int index, int count, CallSite site)
{
    CheckBuffer(chars, index, count, site);
}

int Encoding::FourBytesEach(int charCount, CallSite site)
{
    constexpr int Limit = 536870912; // 2^29: from here on, four times the count does not fit
    return CheckIndex(charCount, Limit, site) * 4;
}
} // namespace Tesmo::System::Text
