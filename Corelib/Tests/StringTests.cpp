#include <Tests/Support/CoreTest.h>

#include <Core/System/StringEnumerator.h>
#include <Core/System/Version.h>

using namespace Tesmo;
using namespace Tesmo::System;

namespace
{
constexpr auto Umlauts = "\xC3\xA4\xC3\xB6\xC3\xBC"; // U+00E4, U+00F6, U+00FC

const String& nothing = null;

template <class T>
concept Appends = requires(String text, T value)
{
    text += value;
};
static_assert(Appends<char> && Appends<char32> && Appends<char32_t> && Appends<const char*> && Appends<String>);
static_assert(!Appends<int> && !Appends<unsigned> && !Appends<bool> && !Appends<double> && !Appends<TypeCode>,
              "a number is no character");

std::vector<std::string> Parts(const Sp<Array<String>>& parts)
{
    std::vector<std::string> texts;
    for (const String& part : *parts)
    {
        texts.push_back(part.Utf8());
    }
    return texts;
}

std::string Characters(Collections::Generic::IEnumerator<char32>& walk)
{
    std::string text;
    while (walk.MoveNext())
    {
        text += String(walk.Current(), 1).Utf8();
    }
    return text;
}
} // namespace

TEST(StringTests, CountsCodePoints)
{
    EXPECT_EQ(String(), String(""));
    EXPECT_EQ(0, String("").Length());
    EXPECT_TRUE(String("").IsEmpty());
    const String text("\xF0\x9F\x98\x80");
    EXPECT_EQ(1, text.Length());
    EXPECT_EQ(char32(0x1F600), text[0]);
    EXPECT_THROW(text[1], ArgumentOutOfRangeException);
    EXPECT_THROW(text[-1], ArgumentOutOfRangeException);
}

TEST(StringTests, MakesTextFromCharacters)
{
    const Array<char32> characters(U'x', U'\u20AC', U'z');
    EXPECT_EQ("x\xE2\x82\xACz", String(characters).Utf8());
    EXPECT_EQ("z", String(characters, 2).Utf8());
    EXPECT_EQ("\xE2\x82\xAC", String(characters, 1, 1).Utf8());
    EXPECT_EQ(3, String(U'\u20AC', 3).Length());
    EXPECT_EQ(characters.Length(), String(characters).ToCharArray().Length());
    EXPECT_EQ(char32(U'\u20AC'), String(characters).ToCharArray(1, 1)[0]);
    EXPECT_THROW(String(characters).ToCharArray(2, 2), ArgumentOutOfRangeException);
    EXPECT_THROW(String::FromLatin1(nullptr, -1), ArgumentOutOfRangeException);
    EXPECT_THROW(String(characters, 2, 2), ArgumentOutOfRangeException);
    EXPECT_THROW(String(characters, 4), ArgumentOutOfRangeException);
    EXPECT_THROW(String(U'x', -1), ArgumentOutOfRangeException);
}

TEST(StringTests, NullIsRefusedEverywhere)
{
    String text("text");
    EXPECT_THROW(String{nothing}, ArgumentNullException);
    EXPECT_THROW(String(static_cast<const char*>(nullptr)), ArgumentNullException);
    EXPECT_THROW(String(static_cast<const Array<char32>&>(null)), ArgumentNullException);
    EXPECT_THROW(text = nothing, ArgumentNullException);
    EXPECT_THROW(text = static_cast<const char*>(nullptr), ArgumentNullException);
    EXPECT_THROW(text += nothing, ArgumentNullException);
    EXPECT_THROW(text + nothing, ArgumentNullException);
    EXPECT_THROW(nothing + "text", ArgumentNullException);
    EXPECT_THROW(nothing + text, ArgumentNullException);
    EXPECT_THROW(String::FromLatin1(nullptr, 1), ArgumentNullException);
    EXPECT_THROW(text + static_cast<const Object&>(null), ArgumentNullException);
    EXPECT_THROW(text.Equals(static_cast<const Object&>(null)), ArgumentNullException); // stricter than other classes
    EXPECT_THROW(text.IndexOf(nothing, -1), ArgumentNullException);                     // the arguments in their order
    EXPECT_THROW(text.IndexOf(nothing, 0, 0), ArgumentNullException);
    EXPECT_THROW(text.LastIndexOf(nothing), ArgumentNullException);
    EXPECT_THROW(text.IndexOfAny(null, -1), ArgumentNullException);
    EXPECT_THROW(text.Contains(nothing), ArgumentNullException);
    EXPECT_THROW(text.StartsWith(nothing), ArgumentNullException);
    EXPECT_THROW(text.EndsWith(nothing, true), ArgumentNullException);
    EXPECT_THROW(text.Insert(0, nothing), ArgumentNullException);
    EXPECT_THROW(text.Replace(text, nothing), ArgumentNullException);
    EXPECT_THROW(text.Replace(nothing, text), ArgumentNullException);
    EXPECT_THROW(text.Trim(static_cast<const Array<char32>&>(null)), ArgumentNullException);
    EXPECT_THROW(String::Join(nothing, Array<String>(0)), ArgumentNullException);
    EXPECT_THROW(String::Concat(text, text, nothing), ArgumentNullException);
    EXPECT_THROW(String::Concat(static_cast<const Collections::Generic::IEnumerable<String>&>(null)),
                 ArgumentNullException);
    EXPECT_EQ("text", text.Utf8());
}

TEST(StringTests, JoinsTextWithAnyObjectAndTextsWithASeparator)
{
    EXPECT_EQ("a5b", ("a" + Int32(5) + "b").Utf8());
    EXPECT_EQ("v1.2", (String("v") + Version(1, 2)).Utf8());
    EXPECT_EQ("1.2v", (Version(1, 2) + String("v")).Utf8());
    EXPECT_EQ("1.21.2", (Version(1, 2) + Version(1, 2)).Utf8());
    EXPECT_EQ(7, Int32(3) + Int32(4)); // numbers stay numbers
    const Array<String> values("a", "b", "c");
    EXPECT_EQ("abc", String::Concat(static_cast<const Collections::Generic::IEnumerable<String>&>(values)).Utf8());
    EXPECT_EQ("abcd", String::Concat("a", "b", "c", "d").Utf8());
    EXPECT_EQ("a, b, c", String::Join(", ", values).Utf8());
    EXPECT_EQ("b", String::Join(", ", values, 1, 1).Utf8());
    EXPECT_EQ("", String::Join(", ", values, 3, 0).Utf8());
    EXPECT_THROW(String::Join(", ", values, 2, 2), ArgumentOutOfRangeException);
}

TEST(StringTests, EqualityKnowsNullAndOtherClasses)
{
    const String text("text");
    EXPECT_FALSE(text == nothing);
    EXPECT_TRUE(text != nothing);
    EXPECT_FALSE(text.Equals(nothing) || text.IsSigned());
    EXPECT_FALSE(text.Equals(Int32(5)));
    EXPECT_TRUE(text.Equals(static_cast<const Object&>(String("text"))));
    const Up<Object> clone(text.Clone());
    EXPECT_TRUE(text.Equals(*clone));
}

TEST(StringTests, ComparesCodePointByCodePoint)
{
    EXPECT_EQ(0, String::Compare(nothing, nothing));
    EXPECT_EQ(-1, String::Compare(nothing, ""));
    EXPECT_EQ(1, String::Compare("", nothing));
    EXPECT_EQ(-1, String::Compare("ab", "abc"));
    EXPECT_EQ(1, String::Compare("b", "abc"));
    EXPECT_EQ(-1, String::Compare("z", Umlauts));
    EXPECT_EQ(-1, String::Compare("ABC", "abc"));
    EXPECT_EQ(0, String::Compare("ABC\xC3\x84", "abc\xC3\xA4", true));
    EXPECT_EQ(0, String::Compare("xxabc", 2, "abd", 0, 2));
    EXPECT_EQ(-1, String::Compare("xxabc", 2, "abd", 0, 100));
    EXPECT_EQ(0, String::Compare("xxabc", 5, "abd", 3, 1));
    EXPECT_THROW(String::Compare("a", 2, "a", 0, 1), ArgumentOutOfRangeException);
    EXPECT_THROW(String::Compare("a", 0, "a", 0, -1), ArgumentOutOfRangeException);
    EXPECT_EQ(1, String("a").CompareTo(null));
    EXPECT_EQ(1, String("1").CompareTo(Int32(1)));
    EXPECT_EQ(-1, String("a").CompareTo(String("b")));
}

TEST(StringTests, TheHashIsFixed)
{
    EXPECT_EQ(0, String("").GetHashCode());
    EXPECT_EQ((97 * 5 + 98) * 5 + 0x20AC, String("ab\xE2\x82\xAC").GetHashCode());
    EXPECT_EQ(static_cast<int>(0xC0E65D24U), String("abcdefghijklmno\xE2\x82\xAC").GetHashCode()); // wraps at 32 bits
}

TEST(StringTests, SearchesForward)
{
    const String text("a\xC3\xA4xax");
    EXPECT_EQ(2, text.IndexOf(U'x'));
    EXPECT_TRUE(text.IndexOf(U'a') == 0 && text.IndexOf("a") == 0 && text.IndexOfAny(Array<char32>(U'a')) == 0);
    EXPECT_EQ(4, text.IndexOf(U'x', 3));
    EXPECT_EQ(-1, text.IndexOf(U'x', 3, 1));
    EXPECT_EQ(-1, text.IndexOf(U'x', 5));
    EXPECT_EQ(2, text.IndexOf("x"));
    EXPECT_EQ(3, text.IndexOf("ax", 1));
    EXPECT_EQ(-1, text.IndexOf("ax", 0, 4)); // the match must lie in the range
    EXPECT_EQ(5, text.IndexOf("", 5));
    EXPECT_EQ(1, text.IndexOfAny(Array<char32>(U'x', U'\u00E4')));
    EXPECT_EQ(2, text.IndexOfAny(Array<char32>(U'x', U'\u00E4'), 2));
    EXPECT_TRUE(text.Contains("\xC3\xA4x") && text.Contains("a") && !text.Contains("b"));
    for (const auto& [start, count] : {std::pair{-1, 0}, {0, -1}, {0, 6}, {6, 0}, {3, 3}})
    {
        EXPECT_THROW(text.IndexOf(U'x', start, count), ArgumentOutOfRangeException);
        EXPECT_THROW(text.IndexOf("x", start, count), ArgumentOutOfRangeException);
    }
    EXPECT_THROW(text.IndexOf(U'x', std::numeric_limits<int>::min()), ArgumentOutOfRangeException);
}

TEST(StringTests, SearchesBackward)
{
    const String text("a\xC3\xA4xax");
    EXPECT_EQ(4, text.LastIndexOf(U'x'));
    EXPECT_EQ(2, text.LastIndexOf(U'x', 3));
    EXPECT_EQ(-1, text.LastIndexOf(U'x', 1, 2));
    EXPECT_EQ(3, text.LastIndexOf("ax"));
    EXPECT_EQ(-1, text.LastIndexOf("ax", 3));
    EXPECT_EQ(3, text.LastIndexOf("ax", 4, 2));
    EXPECT_TRUE(text.LastIndexOf("") == 4 && text.LastIndexOfAny(Array<char32>(U'x')) == 4);
    EXPECT_EQ(3, text.LastIndexOfAny(Array<char32>(U'a', U'\u00E4')));
    EXPECT_EQ(1, text.LastIndexOfAny(Array<char32>(U'a', U'\u00E4'), 2, 2));
    EXPECT_EQ(-1, String().LastIndexOf(U'a'));
    EXPECT_EQ(-1, String().LastIndexOf("a"));
    EXPECT_EQ(0, String().LastIndexOf(""));
    for (const auto& [start, count] : {std::pair{-1, 0}, {5, 1}, {2, 4}, {2, -1}})
    {
        EXPECT_THROW(text.LastIndexOf(U'x', start, count), ArgumentOutOfRangeException);
        EXPECT_THROW(text.LastIndexOf("x", start, count), ArgumentOutOfRangeException);
    }
    EXPECT_THROW(text.LastIndexOf(U'x', std::numeric_limits<int>::max()), ArgumentOutOfRangeException);
    EXPECT_EQ(-1, String().LastIndexOf(U'a', 0));
    EXPECT_EQ(0, String().LastIndexOf("", 0, 0));
    for (const auto& [start, count] : {std::pair{-1, 0}, {0, 1}, {1, 0}, {0, -1}})
    {
        EXPECT_THROW(String().LastIndexOf(U'x', start, count), ArgumentOutOfRangeException);
        EXPECT_THROW(String().LastIndexOf("", start, count), ArgumentOutOfRangeException);
        EXPECT_THROW(String().LastIndexOfAny(Array<char32>(U'x'), start, count), ArgumentOutOfRangeException);
    }
}

TEST(StringTests, ComparesBeginningsAndEnds)
{
    const String text(String("Ab") + Umlauts);
    EXPECT_TRUE(text.StartsWith("") && text.EndsWith(""));
    EXPECT_TRUE(text.StartsWith("Ab") && !text.StartsWith("ab") && text.StartsWith("aB", true));
    EXPECT_TRUE(text.EndsWith("\xC3\xBC") && text.EndsWith("\xC3\x9C", true));
    EXPECT_FALSE(text.StartsWith(text + "x") || text.EndsWith(text + "x"));
}

TEST(StringTests, CutsSubstrings)
{
    const String text(Umlauts);
    EXPECT_EQ("", text.Substring(3).Utf8());
    EXPECT_EQ("\xC3\xBC", text.Substring(2).Utf8());
    EXPECT_EQ("\xC3\xB6", text.Substring(1, 1).Utf8());
    EXPECT_EQ("\xC3\xB6\xC3\xBC", text.Substring(1, 100).Utf8()); // cut down to the end
    EXPECT_EQ("\xC3\xB6\xC3\xBC", text.Substring(1, -1).Utf8());  // all that remains
    EXPECT_EQ("", text.Substring(3, 2).Utf8());
    EXPECT_THROW(text.Substring(4), ArgumentOutOfRangeException);
    EXPECT_THROW(text.Substring(-1), ArgumentOutOfRangeException);
    EXPECT_THROW(text.Substring(0, -2), ArgumentOutOfRangeException);
}

TEST(StringTests, InsertsRemovesAndReplaces)
{
    const String text(Umlauts);
    EXPECT_EQ("\xC3\xA4x\xC3\xB6\xC3\xBC", text.Insert(1, "x").Utf8());
    EXPECT_EQ(text + "x", text.Insert(3, "x"));
    EXPECT_EQ("\xC3\xA4\xC3\xBC", text.Remove(1, 1).Utf8());
    EXPECT_EQ("\xC3\xA4", text.Remove(1).Utf8());
    EXPECT_THROW(text.Insert(4, "x"), ArgumentOutOfRangeException);
    EXPECT_THROW(text.Remove(2, 2), ArgumentOutOfRangeException);
    EXPECT_EQ("\xC3\xA4o\xC3\xBC", text.Replace(U'\u00F6', U'o').Utf8());
    EXPECT_EQ("aaaa", String("abab").Replace("b", "a").Utf8());
    EXPECT_EQ("aab", String("aaab").Replace("aab", "ab").Utf8());
    EXPECT_EQ("ba", String("aaa").Replace("aa", "b").Utf8()); // goes on behind the insertion
    EXPECT_EQ("", String("aa").Replace("a", "").Utf8());
    EXPECT_EQ("aa", String("aa").Replace("", "b").Utf8());
}

TEST(StringTests, PadsTrimsAndMapsCase)
{
    EXPECT_EQ("  \xC3\xA4", String("\xC3\xA4").PadLeft(3).Utf8());
    EXPECT_EQ("ab**", String("ab").PadRight(4, U'*').Utf8());
    EXPECT_EQ("ab  ", String("ab").PadRight(4).Utf8());
    EXPECT_EQ("ab", String("ab").PadLeft(-1).Utf8());
    EXPECT_EQ("", String("***").TrimEnd(U'*').Utf8());
    EXPECT_EQ("", String("***").TrimStart(U'*').Utf8());
    EXPECT_EQ("a*b", String("**a*b*").Trim(U'*').Utf8());
    EXPECT_EQ("a*b*", String("**a*b*").TrimStart(U'*').Utf8());
    EXPECT_EQ("\xC3\xB6", String(Umlauts).Trim(Array<char32>(U'\u00E4', U'\u00FC')).Utf8());
    EXPECT_EQ("b*", String("a*b*").TrimStart(Array<char32>(U'a', U'*')).Utf8());
    EXPECT_EQ("a*b", String("a*b*").TrimEnd(Array<char32>(U'a', U'*')).Utf8());
    EXPECT_EQ("az09\xC3\xA4\xC3\x9F", String("AZ09\xC3\x84\xC3\x9F").ToLower().Utf8());
    EXPECT_EQ("AZ09\xC3\x84\xC3\x9F", String("az09\xC3\xA4\xC3\x9F").ToUpper().Utf8());
}

TEST(StringTests, SplitsByTheRulesOfItsSteps)
{
    using Row = std::tuple<const char*, int, StringSplitOptions, std::vector<std::string>>;
    constexpr auto None = StringSplitOptions::None;
    constexpr auto RemoveEmpty = StringSplitOptions::RemoveEmptyEntries;
    // A separator at the very end adds nothing.
    for (const auto& [text, count, options, parts] :
         {Row{"a,b,,c", 2, None, {"a", "b,,c"}}, Row{"a,,b", 9, RemoveEmpty, {"a", "b"}},
          Row{"a,,b", 9, None, {"a", "", "b"}}, Row{"a;b,c", 9, None, {"a", "b", "c"}}, Row{"a,b", 0, None, {}},
          Row{"a,b", 1, None, {"a,b"}}, Row{"a,b,", 9, None, {"a", "b"}}, Row{",a", 9, None, {"", "a"}},
          Row{",", 9, None, {""}}, Row{"", 9, None, {}}, Row{",,", 9, RemoveEmpty, {}},
          Row{"a,b,", 2, None, {"a", "b,"}}, Row{"a,,b,c", 2, RemoveEmpty, {"a", "b,c"}},
          Row{"\xC3\xA4,\xC3\xB6", 9, None, {"\xC3\xA4", "\xC3\xB6"}}})
    {
        EXPECT_EQ(parts, Parts(String(text).Split(Array<char32>(U',', U';'), count, options))) << text;
    }
    EXPECT_EQ(std::vector<std::string>{"a,b"}, Parts(String("a,b").Split(static_cast<const Array<char32>&>(null))));
    EXPECT_EQ((std::vector<std::string>{"a", "b"}), Parts(String("a b").Split(U' ')));
    EXPECT_THROW(String("a").Split(Array<char32>(U',', U';'), -1), ArgumentOutOfRangeException);
}

TEST(StringTests, EnumeratorsWalkInBothDirections)
{
    const String text("x\xC3\xB6z");
    EXPECT_EQ("z\xC3\xB6x", Characters(*text.GetReverseEnumerator()));
    EXPECT_EQ("", Characters(*String().GetEnumerator()));

    String::Enumerator walk(text);
    EXPECT_THROW(walk.Current(), InvalidOperationException);
    EXPECT_EQ(text.Utf8(), Characters(walk));
    EXPECT_FALSE(walk.MoveNext());
    EXPECT_THROW(walk.Current(), InvalidOperationException);
    walk.Reset();
    EXPECT_EQ(text.Utf8(), Characters(walk));
}
