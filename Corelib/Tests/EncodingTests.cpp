#include "CoreTest.h"

#include <Core/System/Text/CodePage437Encoding.h>
#include <Core/System/Text/UTF8Encoding.h>
#include <Core/System/Text/UnicodeEncoding.h>

using namespace Tesmo;
using namespace Tesmo::System;
using namespace Tesmo::System::Text;

namespace
{
using ByteArray = Encoding::ByteArray;

std::string Content(const ByteArray& bytes)
{
    return {bytes.begin(), bytes.end()};
}

ByteArray Bytes(const std::string& text)
{
    return ByteArray(std::vector<unsigned char>(text.begin(), text.end()));
}

std::string Encoded(int codePage, char32 c)
{
    return Content(Encoding::GetEncoding(codePage)->GetBytes(String(c, 1)));
}

std::string Decoded(int codePage, const std::string& bytes)
{
    return Encoding::GetEncoding(codePage)->GetString(Bytes(bytes)).Utf8();
}
} // namespace

TEST(EncodingTests, TheFamilyIsChosenByNumberAndName)
{
    using Row = std::tuple<int, const char*, std::string, bool>;
    for (const auto& [codePage, webName, preamble, isSingleByte] :
         {Row{437, "IBM437", "", true}, Row{1200, "utf-16", "\xFF\xFE", false},
          Row{1201, "unicodeFFFE", "\xFE\xFF", false}, Row{12000, "utf-32", std::string("\xFF\xFE\0\0", 4), false},
          Row{12001, "utf-32BE", std::string("\0\0\xFE\xFF", 4), false}, Row{20127, "us-ascii", "", true},
          Row{28591, "iso-8859-1", "", true}, Row{28592, "iso-8859-2", "", true},
          Row{65001, "utf-8", "\xEF\xBB\xBF", false}})
    {
        const Up<Encoding> encoding = Encoding::GetEncoding(webName);
        EXPECT_EQ(codePage, encoding->CodePage());
        EXPECT_EQ(webName, encoding->ToString().Utf8());
        EXPECT_EQ(preamble, Content(encoding->GetPreamble()));
        EXPECT_EQ(isSingleByte, encoding->IsSingleByte());
        EXPECT_TRUE(encoding->Equals(*Encoding::GetEncoding(codePage)));
    }
    EXPECT_EQ(1201, Encoding::BigEndianUnicode()->CodePage());
    EXPECT_THROW(Encoding::GetEncoding("UTF-8"), NotSupportedException); // names are compared with case
    EXPECT_THROW(Encoding::GetEncoding(1252), NotSupportedException);
    EXPECT_THROW(Encoding::GetEncoding(static_cast<const String&>(null)), ArgumentNullException);
}

TEST(EncodingTests, CharactersHaveTheirPublishedBytes)
{
    using Row = std::tuple<int, std::uint32_t, std::string>;
    const Row rows[] = {
        {20127, 'A', "A"},
        {20127, 233, "?"},
        {28591, 233, "\xE9"},
        {28591, 0x20AC, "?"},
        {28592, 0x158, "\xD8"},
        {28592, 0xE5, "?"},
        {437, 231, "\x87"},
        {437, 0x2592, "\xB1"},
        {437, 0xA0, "\xFF"},
        {437, 0x20AC, "?"},
        {437, 0x10087, "?"},
        {65001, 0x7F, "\x7F"},
        {65001, 0x80, "\xC2\x80"},
        {65001, 0x20AC, "\xE2\x82\xAC"},
        {65001, 0x10FFFF, "\xF4\x8F\xBF\xBF"},
        {65001, 0xD800, ""},
        {65001, 0x110000, ""},
        {1200, 0x20AC, "\xAC\x20"},
        {1201, 0x1F600, std::string("\xD8\x3D\xDE\x00", 4)},
        {12000, 0x1F600, std::string("\x00\xF6\x01\x00", 4)},
        {12001, 0x1F600, std::string("\x00\x01\xF6\x00", 4)},
    };
    for (const auto& [codePage, codePoint, bytes] : rows)
    {
        SCOPED_TRACE(std::to_string(codePage) + " " + std::to_string(codePoint));
        const Up<Encoding> encoding = Encoding::GetEncoding(codePage);
        EXPECT_EQ(bytes, Encoded(codePage, char32(codePoint)));
        EXPECT_EQ(static_cast<int>(bytes.size()), encoding->GetByteCount(char32(codePoint)));
    }
}

TEST(EncodingTests, EveryByteOfACodePageReturns)
{
    std::string bytes;
    for (int byte = 0; byte < 256; byte++)
    {
        bytes += static_cast<char>(byte);
    }
    for (const int codePage : {437, 28591, 28592})
    {
        const Up<Encoding> encoding = Encoding::GetEncoding(codePage);
        const String text = encoding->GetString(Bytes(bytes));
        EXPECT_EQ(256, text.Length());
        EXPECT_EQ(bytes, Content(encoding->GetBytes(text)));
        EXPECT_EQ(bytes.substr(0, 128), text.Utf8().substr(0, 128));
    }
    EXPECT_EQ("A?", Decoded(20127, "A\xE9"));
}

TEST(EncodingTests, DecodersPassOverBadInput)
{
    EXPECT_EQ("a\xE2\x82\xAC"
              "b",
              Decoded(65001, "\x80"
                             "a\xE2\x82\xAC\xE2\x82"
                             "b\xF0\x9F\xFF"));
    EXPECT_EQ("a\xF0\x9F\x98\x80", Decoded(1200, std::string("\x3D\xD8"
                                                             "a\0\x00\xDE\x3D\xD8\x00\xDE"
                                                             "b",
                                                             11)));
    EXPECT_EQ("a", Decoded(12000, std::string("\x00\x00\x11\x00"
                                              "a\0\0\0\x01",
                                              9)));
}

TEST(EncodingTests, ConvertsBetweenEncodings)
{
    const String text("a\xC3\xA7\xF0\x9F\x98\x80");
    const Up<Encoding> utf8 = Encoding::UTF8();
    const ByteArray bytes = utf8->GetBytes(text);
    for (const int codePage : {1200, 1201, 12000, 12001})
    {
        const Up<Encoding> other = Encoding::GetEncoding(codePage);
        const ByteArray converted = Encoding::Convert(*utf8, *other, bytes);
        EXPECT_EQ(text, other->GetString(converted));
        EXPECT_EQ(3, other->GetCharCount(converted));
        EXPECT_EQ(converted.Length(), other->GetByteCount(text));
    }
    EXPECT_EQ("\x87", Content(Encoding::Convert(*utf8, CodePage437Encoding(), bytes, 1, 2)));
}

TEST(EncodingTests, BuffersAreChecked)
{
    const Up<Encoding> utf8 = Encoding::UTF8();
    ByteArray bytes(4);
    EXPECT_EQ(3, utf8->GetBytes(char32(0x20AC), bytes, 1));
    EXPECT_EQ(std::string("\0\xE2\x82\xAC", 4), Content(bytes));
    EXPECT_EQ(2, utf8->GetBytes(String("xabx"), 1, 2, bytes, 2));
    EXPECT_EQ(0, utf8->GetBytes(char32(0xD800), bytes, 4));
    EXPECT_THROW(utf8->GetBytes(char32(0x20AC), bytes, 2), ArgumentOutOfRangeException);
    EXPECT_THROW(utf8->GetBytes(char32(U'a'), bytes, -1), ArgumentOutOfRangeException);
    EXPECT_THROW(utf8->GetString(bytes, 3, 2), ArgumentOutOfRangeException);
    EXPECT_THROW(utf8->GetChars(bytes, -1, 1), ArgumentOutOfRangeException);
    const auto& nothing = static_cast<const ByteArray&>(null);
    EXPECT_THROW(utf8->GetString(nothing), ArgumentNullException);
    EXPECT_THROW(utf8->GetCharCount(nothing, 0, 1), ArgumentNullException);
    EXPECT_EQ(0, utf8->GetChars(nothing, 0, 0).Length());
    EXPECT_THROW(utf8->GetBytes(static_cast<const String&>(null)), ArgumentNullException);
}

TEST(EncodingTests, BoundsOfSizes)
{
    const Up<Encoding> utf8 = Encoding::UTF8();
    EXPECT_EQ(2147483644, utf8->GetMaxByteCount(536870911));
    EXPECT_THROW(utf8->GetMaxByteCount(536870912), ArgumentOutOfRangeException);
    EXPECT_EQ(7, utf8->GetMaxCharCount(7));
    EXPECT_EQ(4, Encoding::Unicode()->GetMaxCharCount(7));
    EXPECT_EQ(7, Encoding::ASCII()->GetMaxByteCount(7));
}

TEST(EncodingTests, AssignmentTakesTheFlagsOfTheSameClass)
{
    UTF8Encoding plain(false);
    EXPECT_EQ(0, plain.GetPreamble().Length());
    static_cast<Encoding&>(plain) = *Encoding::UTF8();
    EXPECT_EQ(3, plain.GetPreamble().Length());

    UnicodeEncoding utf16;
    utf16 = UnicodeEncoding(true, false);
    EXPECT_EQ(1201, utf16.CodePage());
    EXPECT_EQ(0, utf16.GetPreamble().Length());
    EXPECT_EQ(std::string("\0a", 2), Content(utf16.GetBytes("a")));
    EXPECT_THROW(static_cast<Encoding&>(utf16) = plain, ArgumentException);
}

TEST(EncodingTests, NativeTextIsCodePage437)
{
    const auto native = [](const String& text)
    {
        const Up<char[]> characters = text.ToCCharArray();
        return std::string(&characters[0], static_cast<std::size_t>(text.Length()) + 1);
    };
    EXPECT_EQ(std::string("plain\0", 6), native("plain"));
    EXPECT_EQ(std::string("\x87?z\0", 4), native("\xC3\xA7\xE2\x82\xACz"));
    EXPECT_EQ(std::string("a\0b\0", 4), native(String(std::string("a\0b", 3))));
    EXPECT_EQ(std::string(1, '\0'), native(""));
}
