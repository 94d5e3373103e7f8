#include <Tests/Support/CoreTest.h>

#include <Core/System/StringEnumerator.h>
#include <Core/System/UString.h>

#include <random>

using namespace Tesmo;
using namespace Tesmo::System;

namespace
{
std::vector<std::uint32_t> Forward(const ustring& text)
{
    std::vector<std::uint32_t> codePoints;
    for (const char32 c : text)
    {
        codePoints.push_back(c.value);
    }
    return codePoints;
}

std::vector<std::uint32_t> Backward(const ustring& text)
{
    std::vector<std::uint32_t> codePoints;
    for (auto position = text.rbegin(); position != text.rend(); ++position)
    {
        codePoints.insert(codePoints.begin(), (*position).value);
    }
    return codePoints;
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
    const std::vector<std::uint32_t> codePoints = Forward(text.Text());
    ASSERT_EQ(codePoints, Backward(text.Text()));
    ASSERT_EQ(codePoints.size(), static_cast<std::size_t>(text.Length()));
    for (int i = 0; i < text.Length(); i++)
    {
        const std::uint32_t codePoint = codePoints[static_cast<std::size_t>(i)];
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
    CheckConsistency(text.Insert(middle, other));
    CheckConsistency(text.Remove(middle));
    CheckConsistency(text.Replace(other, ","));
    CheckConsistency(text.Trim(Array<char32>(U'A', U',')));
    CheckConsistency(text.PadLeft(text.Length() + 2) + text.ToLower());
    CheckConsistency(String(text.ToCharArray()));
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

TEST(UStringTests, ReadsAndWritesEveryLengthOfSequence)
{
    // The last two are the five-byte and the six-byte form of early UTF-8.
    using Row = std::tuple<const char*, std::uint32_t>;
    for (const auto& [bytes, codePoint] :
         {Row{"A", 0x41}, Row{"\xC3\xA9", 0xE9}, Row{"\xE2\x82\xAC", 0x20AC}, Row{"\xF0\x9F\x98\x80", 0x1F600},
          Row{"\xF8\x88\x80\x80\x80", 0x200000}, Row{"\xFD\xBF\xBF\xBF\xBF\xBF", 0x7FFFFFFF}})
    {
        const ustring read{std::string(bytes)};
        EXPECT_EQ(std::vector<std::uint32_t>{codePoint}, Forward(read));
        EXPECT_EQ(1, read.Length()) << codePoint;
        EXPECT_EQ(read, ustring(char32(codePoint), 1)) << codePoint;
    }
    EXPECT_EQ("\xEF\xBF\xBD", ustring(char32(0x80000000U), 1).Bytes()); // beyond six bytes: U+FFFD
}

TEST(UStringTests, PassesOverBytesThatFormNoSequence)
{
    using Row = std::tuple<const char*, std::vector<std::uint32_t>>;
    const Row rows[] = {
        {"\x80\xBF", {}},                   // nothing but continuation bytes
        {"\xE2\x82", {}},                   // cut short by the end
        {"\xE2\x82Z", {'Z'}},               // cut short by another character
        {"\xC3\xC3\xA9", {0xE9}},           // a lead byte in place of a continuation byte
        {"\xFEY\xFFZ", {'Y', 'Z'}},         // bytes that occur in no sequence
        {"\xC3\xA9\xA9\xA9Z", {0xE9, 'Z'}}, // more continuation bytes than announced
        {"\xFC\x80\x80\x80\x80", {}},       // five of six
        {"stuvwxyz\x80stuvwxyz", {'s', 't', 'u', 'v', 'w', 'x', 'y', 'z', 's', 't', 'u', 'v', 'w', 'x', 'y', 'z'}},
    };
    for (const auto& [bytes, codePoints] : rows)
    {
        SCOPED_TRACE(bytes);
        const String text{std::string(bytes)};
        EXPECT_EQ(codePoints, Forward(text.Text()));
        EXPECT_EQ(bytes, text.Utf8());
        CheckConsistency(text);
    }
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
        CheckConsistency(text + other);
        CheckOperations(text, other);
    }
}

TEST(UStringTests, IteratorsStepBackFromTheEnds)
{
    const ustring text(std::string("a\xC3\xA9z"));
    auto last = --text.end();
    auto first = --text.rend();

    EXPECT_EQ(char32(U'z'), *last--);
    EXPECT_EQ(1, last.charIndex);
    EXPECT_EQ(char32(U'a'), *first);
    EXPECT_EQ(0, first.charIndex);
    EXPECT_EQ(3, text.end().charIndex);
    EXPECT_EQ(text.rbegin(), -- --first);
}

TEST(UStringTests, BytesOfADatagramBecomeCodePointsOneForOne)
{
    std::vector<unsigned char> bytes(2048);
    bytes[0] = 'A';
    bytes[9] = 0xE9;
    bytes[2047] = 0xFF;

    const String text = String::FromLatin1(bytes.data(), 2048);
    EXPECT_EQ(2048, text.Length());
    EXPECT_EQ(2050U, text.Utf8().size());
    EXPECT_EQ(0xE9U, text[9].value);
    EXPECT_EQ(0xFFU, text[2047].value);
    EXPECT_EQ(0U, text[1].value);
    EXPECT_EQ(0, String::FromLatin1(nullptr, 0).Length());
}

TEST(UStringTests, TextThatWasMovedAwayIsEmpty)
{
    String source("a text that is too long for the inner buffer");
    const String target(std::move(source));
    EXPECT_EQ(String(), source); // NOLINT(bugprone-use-after-move): that it is in order is the point
}
