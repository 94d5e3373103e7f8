#include <Tests/Support/CoreTest.h>

#include <Core/System/Text/CodePage437Encoding.h>
#include <Core/System/Text/UTF32Encoding.h>
#include <Core/System/Text/UTF8Encoding.h>
#include <Core/System/Text/UnicodeEncoding.h>

#include <numeric>

using namespace Tesmo::System::Text;
using namespace std::string_literals;

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
          Row{1201, "unicodeFFFE", "\xFE\xFF", false}, Row{12000, "utf-32", "\xFF\xFE\0\0"s, false},
          Row{12001, "utf-32BE", "\0\0\xFE\xFF"s, false}, Row{20127, "us-ascii", "", true},
          Row{28591, "iso-8859-1", "", true}, Row{28592, "iso-8859-2", "", true},
          Row{65001, "utf-8", "\xEF\xBB\xBF", false}})
    {
        const Up<Encoding> encoding = Encoding::GetEncoding(webName);
        EXPECT_TRUE(encoding->CodePage() == codePage && encoding->IsSingleByte() == isSingleByte) << webName;
        EXPECT_EQ(webName, encoding->ToString().Utf8());
        EXPECT_TRUE(encoding->CreateEncoder()->ToString().Contains("Encoder")) << webName;
        EXPECT_TRUE(encoding->CreateDecoder()->ToString().Contains("Decoder")) << webName;
        EXPECT_EQ(preamble, Content(encoding->GetPreamble()));
        EXPECT_TRUE(encoding->Equals(*Encoding::GetEncoding(codePage)));
    }
    EXPECT_EQ(1201, Encoding::BigEndianUnicode()->CodePage());
    ExpectEachThrows<NotSupportedException>( // names are compared with case
        {[] { Encoding::GetEncoding("UTF-8"); }, [] { Encoding::GetEncoding(1252); }});
    EXPECT_THROW(Encoding::GetEncoding(static_cast<const String&>(null)), ArgumentNullException);
}

TEST(EncodingTests, CharactersHaveTheirPublishedBytes)
{
    using Row = std::tuple<int, std::u32string, std::string>;
    for (const auto& [codePage, codePoints, bytes] :
         {Row{20127, U"A\xE9", "A?"}, Row{28591, U"\xE9\x20AC", "\xE9?"}, Row{28592, U"\x158\xE5", "\xD8?"},
          Row{437, U"\xE7\x2592\xA0\x20AC\x10087", "\x87\xB1\xFF??"},
          Row{65001, U"\x7F\x80\x20AC\x10FFFF", "\x7F\xC2\x80\xE2\x82\xAC\xF4\x8F\xBF\xBF"},
          Row{65001, U"\xD800\x110000", ""}, Row{1200, U"\x20AC", "\xAC\x20"}, Row{1201, U"\x1F600", "\xD8\x3D\xDE\0"s},
          Row{12000, U"\x1F600", "\0\xF6\x01\0"s}, Row{12001, U"\x1F600", "\0\x01\xF6\0"s}})
    {
        SCOPED_TRACE(codePage);
        const Up<Encoding> encoding = Encoding::GetEncoding(codePage);
        std::string encoded;
        for (const char32_t codePoint : codePoints)
        {
            const std::string own = Content(encoding->GetBytes(String(char32(codePoint), 1)));
            EXPECT_EQ(static_cast<int>(own.size()), encoding->GetByteCount(char32(codePoint)));
            encoded += own;
        }
        EXPECT_EQ(bytes, encoded);
    }
}

TEST(EncodingTests, EveryByteOfACodePageReturns)
{
    std::string bytes(256, '\0');
    std::iota(bytes.begin(), bytes.end(), '\0');
    for (const int codePage : {437, 28591, 28592})
    {
        const Up<Encoding> encoding = Encoding::GetEncoding(codePage);
        const String text = encoding->GetString(Bytes(bytes));
        EXPECT_TRUE(text.Length() == 256 && Content(encoding->GetBytes(text)) == bytes);
        EXPECT_EQ(bytes.substr(0, 128), text.Utf8().substr(0, 128));
    }
    EXPECT_EQ("A\x7F??", Decoded(20127, "A\x7F\x80\xE9"));
}

TEST(EncodingTests, ConvertsBetweenEncodingsAndPassesOverBadInput)
{
    EXPECT_EQ("y\xE2\x82\xACz", Decoded(65001, "\x80y\xE2\x82\xAC\xE2\x82z\xF0\x9F\xFF"));
    EXPECT_EQ("", Decoded(65001, "\xE2\x82\xFF\xAC"));
    EXPECT_EQ("y\xF0\x9F\x98\x80", Decoded(1200, "\x3D\xD8y\0\0\xDE\x3D\xD8\0\xDEz"s));
    EXPECT_EQ("\xF0\x90\x8F\xBF", Decoded(1200, "\0\xD8\xFF\xDF"s)); // the last low surrogate
    EXPECT_EQ("z", Decoded(12000, "\0\0\x11\0z\0\0\0\x01"s));
    const String text("a\xC3\xA7"
                      "b\xF0\x9F\x98\x80");
    const Up<Encoding> utf8 = Encoding::UTF8();
    const ByteArray bytes = utf8->GetBytes(text);
    EXPECT_TRUE(utf8->GetCharCount(bytes) == 4 && utf8->GetCharCount(bytes, 1, 2) == 1);
    for (const int codePage : {1200, 1201, 12000, 12001})
    {
        const Up<Encoding> other = Encoding::GetEncoding(codePage);
        const ByteArray converted = Encoding::Convert(*utf8, *other, bytes);
        EXPECT_TRUE(other->GetString(converted) == text && other->GetCharCount(converted) == 4) << codePage;
        EXPECT_EQ(converted.Length(), other->GetByteCount(text));
    }
    EXPECT_EQ("\x87", Content(Encoding::Convert(*utf8, CodePage437Encoding(), bytes, 1, 2)));
}

TEST(EncodingTests, BuffersAndSizesAreChecked)
{
    const Up<Encoding> utf8 = Encoding::UTF8();
    ByteArray bytes(4);
    EXPECT_EQ(3, utf8->GetBytes(char32(0x20AC), bytes, 1));
    EXPECT_EQ("\0\xE2\x82\xAC"s, Content(bytes));
    EXPECT_EQ(2, utf8->GetBytes(String("xabx"), 1, 2, bytes, 2));
    EXPECT_EQ(0, utf8->GetBytes(char32(0xD800), bytes, 4));
    const Array<char32> characters(std::vector<char32>{U'x', U'\u20AC', U'a'});
    EXPECT_TRUE(utf8->GetByteCount(characters) == 5 && utf8->GetByteCount(characters, 1, 1) == 3);
    EXPECT_EQ(4, utf8->GetBytes(characters, 1, 2, bytes, 0));
    EXPECT_EQ("\xE2\x82\xAC"
              "a",
              Content(bytes));
    EXPECT_EQ((std::vector<int>{2147483644, 28, 7, 7, 4, 28, 7, 2, 1}),
              (std::vector<int>{utf8->GetMaxByteCount(536870911), Encoding::UTF32()->GetMaxByteCount(7),
                                Encoding::ASCII()->GetMaxByteCount(7), utf8->GetMaxCharCount(7),
                                Encoding::Unicode()->GetMaxCharCount(7), Encoding::Unicode()->GetMaxByteCount(7),
                                Encoding::ASCII()->GetMaxCharCount(7), Encoding::UTF32()->GetMaxCharCount(5),
                                Encoding::UTF32()->GetMaxCharCount(4)}));
    ExpectEachThrows<ArgumentOutOfRangeException>(
        {[&] { utf8->GetBytes(char32(0x20AC), bytes, 2); }, [&] { utf8->GetBytes(char32(U'a'), bytes, -1); },
         [&] { utf8->GetString(bytes, 3, 2); }, [&] { utf8->GetChars(bytes, -1, 1); },
         [&] { utf8->GetBytes(Array<char32>(2), 1, 2, bytes, 0); },
         [&] { utf8->GetBytes(Array<char32>(0), 0, 0, bytes, -1); }, [&] { utf8->GetMaxByteCount(536870912); }});
    const ByteArray& nothing = null;
    ExpectEachThrows<ArgumentNullException>(
        {[&] { utf8->GetString(nothing); }, [&] { utf8->GetCharCount(nothing, 0, 1); },
         [&] { Encoding::Convert(null, *utf8, bytes); }, [&] { Encoding::Convert(*utf8, null, bytes); },
         [&] { utf8->GetBytes(static_cast<const String&>(null)); }});
    EXPECT_EQ(0, utf8->GetChars(nothing, 0, 0).Length());
}

TEST(EncodingTests, AssignmentTakesTheFlagsOfTheSameClass)
{
    UTF8Encoding plain(false);
    EXPECT_EQ(0, plain.GetPreamble().Length());
    static_cast<Encoding&>(plain) = *Encoding::UTF8();
    EXPECT_EQ(3, plain.GetPreamble().Length());
    UnicodeEncoding utf16;
    utf16 = UnicodeEncoding(true, false);
    EXPECT_TRUE(utf16.CodePage() == 1201 && utf16.GetPreamble().Length() == 0);
    EXPECT_EQ("\0a"s, Content(utf16.GetBytes("a")));
    UTF32Encoding utf32;
    utf32 = UTF32Encoding(true, false);
    EXPECT_TRUE(utf32.CodePage() == 12001 && utf32.GetPreamble().Length() == 0);
    plain = UTF8Encoding(false);
    EXPECT_EQ(0, plain.GetPreamble().Length());
    EXPECT_THROW(static_cast<Encoding&>(utf16) = plain, ArgumentException);
    EXPECT_FALSE(plain.Equals(*Encoding::ASCII()) || plain.Equals(String("utf-8")) || plain.Equals(null));
}

TEST(EncodingTests, NativeTextIsCodePage437)
{
    using Row = std::tuple<std::string, std::string>;
    for (const auto& [text, native] :
         {Row{"plain", "plain\0"s}, Row{"\xC3\xA7\xE2\x82\xACz", "\x87?z\0"s}, Row{"a\0b"s, "a\0b\0"s}, Row{"", "\0"s}})
    {
        const Up<char[]> characters = String(text).ToCCharArray();
        EXPECT_EQ(native, std::string(&characters[0], native.size()));
    }
}
