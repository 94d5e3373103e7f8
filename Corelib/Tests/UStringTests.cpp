#include <Tests/Support/CoreTest.h>

#include <Core/System/StringEnumerator.h>
#include <Core/System/UString.h>

#include <random>

namespace
{
template <class Iterator>
std::u32string Walk(Iterator position, const Iterator& end)
{
    std::u32string codePoints;
    for (; position != end; ++position)
    {
        codePoints.push_back((*position).value);
    }
    return codePoints;
}

std::u32string Forward(const ustring& text)
{
    return Walk(text.begin(), text.end());
}

/// Bytes as a hostile datagram could hold them: lead bytes, continuation bytes and ASCII, rarely in order.
std::string RandomBytes(std::mt19937& random)
{
    static const std::string alphabet = "A,\x80\x82\xBF\xC3\xE2\xF0\xF8\xFC\xFE\xFF";
    std::string bytes(random() % 24, '\0');
    for (char& byte : bytes)
    {
        byte = alphabet[random() % alphabet.size()];
    }
    return bytes;
}

/// Each view on a text tells of the same code points.
void CheckConsistency(const String& text)
{
    const std::u32string codePoints = Forward(text.Text());
    ASSERT_EQ(std::u32string(codePoints.rbegin(), codePoints.rend()), Walk(text.Text().rbegin(), text.Text().rend()));
    ASSERT_EQ(codePoints.size(), static_cast<std::size_t>(text.Length()));
    for (int i = 0; i < text.Length(); i++)
    {
        const char32_t codePoint = codePoints[static_cast<std::size_t>(i)];
        ASSERT_EQ(codePoint, text[i].value);
        ASSERT_EQ(codePoint, (*text.Text().BackFrom(static_cast<std::size_t>(i))).value);
        ASSERT_EQ(1, text.Substring(i, 1).Length());
        ASSERT_EQ(codePoint, text.Substring(i, 1)[0].value);
    }
    ASSERT_EQ(text, text.Substring(0, text.Length()));
}

/// Every operation that cuts or joins, on text that may be bad.
void CheckOperations(const String& text, const String& other)
{
    const int middle = text.Length() / 2;
    for (const String& made :
         {text + other, text.Insert(middle, other), text.Remove(middle), text.Replace(other, ","), text.ToLower(),
          text.Trim(Array<char32>(U'A', U',')), text.PadLeft(text.Length() + 2), String(text.ToCharArray())})
    {
        CheckConsistency(made);
    }
    EXPECT_EQ(text.IndexOf(other) < 0, text.LastIndexOf(other) < 0);
    EXPECT_EQ(0, String::Compare(text, text, true));
    EXPECT_TRUE(text.StartsWith(text.Substring(0, middle)) && text.EndsWith(text.Substring(middle)));
    const Sp<Array<String>> parts = text.Split(U',');
    for (const String& part : *parts)
    {
        CheckConsistency(part);
        EXPECT_EQ(-1, part.IndexOf(U','));
    }
    EXPECT_EQ('\0', text.ToCCharArray()[static_cast<std::size_t>(text.Length())]);
}
} // namespace

TEST(UStringTests, ReadsAndWritesEveryLengthOfSequenceAndPassesOverOtherBytes) // up to the six bytes of early UTF-8
{
    using Row = std::tuple<const char*, std::u32string>;
    for (const auto& [bytes, codePoints] :
         {Row{"A", U"A"}, Row{"\xC3\xA9", U"\xE9"}, Row{"\xE2\x82\xAC", U"\x20AC"}, Row{"\xF0\x9F\x98\x80", U"\x1F600"},
          Row{"\xF8\x88\x80\x80\x80", U"\x200000"}, Row{"\xFD\xBF\xBF\xBF\xBF\xBF", U"\x7FFFFFFF"},
          Row{"\x80\xBF", U""}, Row{"\xE2\x82", U""}, Row{"\xE2\x82Z", U"Z"}, Row{"\xC3\xC3\xA9", U"\xE9"},
          Row{"\xFEY\xFFZ", U"YZ"}, Row{"\xC3\xA9\xA9\xA9Z", U"\u00E9Z"}, Row{"\xFC\x80\x80\x80\x80", U""},
          Row{"stuvwxyz\x80stuvwxyz", U"stuvwxyzstuvwxyz"}})
    {
        SCOPED_TRACE(bytes);
        const String text{std::string(bytes)};
        EXPECT_EQ(codePoints, Forward(text.Text()));
        EXPECT_EQ(bytes, text.Utf8());
        CheckConsistency(text);
        const String written(text.ToCharArray());
        EXPECT_EQ(codePoints, Forward(written.Text()));
        EXPECT_LE(written.Utf8().size(), text.Utf8().size());
    }
    EXPECT_EQ("\xEF\xBF\xBD", ustring(char32(0x80000000U), 1).Bytes()); // beyond six bytes: U+FFFD
}

TEST(UStringTests, CountsTheSequenceThatFormsWhereTextsMeet)
{
    EXPECT_EQ("x\x80Z", String("\x80Z").Insert(0, "x").Utf8()); // index 0 stands before bytes that form none
    String text("A\xE2\x82");
    EXPECT_EQ(1, text.Length());
    text += String("\xACZ");
    EXPECT_EQ(3, text.Length());
    EXPECT_EQ(0x20ACU, text[1].value);
    EXPECT_EQ(3, (String("A\xE2\x82") + "\xACZ").Length());
    EXPECT_EQ(String("A\xE2\x82\xACZ"), text);
    text += text; // a text may be appended to itself
    EXPECT_EQ(6, text.Length());
}

TEST(UStringTests, LengthAndPositionsAgreeForAnyBytes)
{
    std::mt19937 random(20);
    for (int round = 0; round < 3000 && !testing::Test::HasFailure(); round++)
    {
        const String text(RandomBytes(random));
        const String other(RandomBytes(random));
        SCOPED_TRACE(testing::PrintToString(text.Utf8()) + " and " + testing::PrintToString(other.Utf8()));
        CheckConsistency(text);
        CheckOperations(text, other);
    }
}

TEST(UStringTests, IteratorsStepBackFromTheEnds)
{
    const ustring text(std::string("a\xC3\xA9z"));
    auto last = --text.end();
    auto first = --text.rend();
    EXPECT_TRUE(*last-- == char32(U'z') && last.charIndex == 1 && text.end().charIndex == 3);
    EXPECT_TRUE(*first == char32(U'a') && first.charIndex == 0);
    EXPECT_EQ(text.rbegin(), -- --first);
}

TEST(UStringTests, BytesOfADatagramBecomeCodePointsOneForOneAndMoveWithTheirText)
{
    std::vector<unsigned char> bytes(2048);
    bytes[9] = 0x80;
    bytes[2047] = 0xFF;
    String source = String::FromLatin1(bytes.data(), 2048);
    const String text(std::move(source));
    EXPECT_TRUE(text.Length() == 2048 && text.Utf8().size() == 2050U);
    EXPECT_TRUE(text[9].value == 0x80U && text[2047].value == 0xFFU && text[1].value == 0U);
    EXPECT_EQ(String(), source); // NOLINT(bugprone-use-after-move): that it is in order is the point
    EXPECT_EQ(0, String::FromLatin1(nullptr, 0).Length());
}
