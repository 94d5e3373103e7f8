#include <Tests/Support/CoreTest.h>

#include <Core/System/StringEnumerator.h>

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

using Numbers = std::vector<int>;
using Row = TextRow;

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
    EXPECT_THROW(walk.Current(), InvalidOperationException);
    return text;
}
} // namespace

TEST(StringTests, IsMadeFromCharactersAndCountsThem)
{
    const Array<char32> characters(U'x', U'\u20AC', U'z');
    const String text(characters);
    EXPECT_TRUE(String("").IsEmpty() && String("") == String() && String().Length() == 0);
    EXPECT_TRUE(String("\xF0\x9F\x98\x80").Length() == 1 && String("\xF0\x9F\x98\x80")[0] == char32(0x1F600));
    ExpectTexts(
        {Row{"x\xE2\x82\xACz", text}, Row{"z", String(characters, 2)}, Row{"\xE2\x82\xAC", String(characters, 1, 1)}});
    EXPECT_TRUE(String(U'\u20AC', 3).Length() == 3 && text.ToCharArray().Length() == 3);
    EXPECT_EQ(char32(U'\u20AC'), text.ToCharArray(1, 1)[0]);
    ExpectEachThrows<ArgumentOutOfRangeException>(
        {[&] { text[3]; }, [&] { text[-1]; }, [&] { text.ToCharArray(2, 2); }, [] { String::FromLatin1(nullptr, -1); },
         [&] { String(characters, 2, 2); }, [&] { String(characters, 4); }, [] { String(U'x', -1); }});
}

TEST(StringTests, NullIsRefusedEverywhere)
{
    String text("text");
    const char* const noBytes = nullptr;
    const Object& noObject = null;
    const Array<char32>& noCharacters = null;
    const Collections::Generic::IEnumerable<String>& noTexts = null;
    ExpectEachThrows<ArgumentNullException>(
        {[&] { String{nothing}; }, [&] { String{noBytes}; }, [&] { String{noCharacters}; }, [&] { text = nothing; },
         [&] { text = noBytes; }, [&] { text += nothing; }, [&] { text + nothing; }, [&] { nothing + "text"; },
         [&] { nothing + text; }, [&] { text + noObject; }});
    ExpectEachThrows<ArgumentNullException>(
        {[&] { String::FromLatin1(nullptr, 1); }, [&] { text.Equals(noObject); }, [&] { text.IndexOf(nothing, -1); },
         [&] { text.IndexOf(nothing, 0, 0); }, [&] { text.LastIndexOf(nothing); }, [&] { text.IndexOfAny(null, -1); },
         [&] { text.Contains(nothing); }, [&] { text.StartsWith(nothing); }, [&] { text.EndsWith(nothing, true); }});
    ExpectEachThrows<ArgumentNullException>(
        {[&] { text.Insert(0, nothing); }, [&] { text.Replace(text, nothing); }, [&] { text.Replace(nothing, text); },
         [&] { text.Trim(noCharacters); }, [&] { String::Join(nothing, Array<String>(0)); },
         [&] { String::Concat(text, text, nothing); }, [&] { String::Concat(noTexts); }});
    EXPECT_EQ("text", text.Utf8());
}

TEST(StringTests, JoinsTextWithAnyObjectAndTextsWithASeparator)
{
    const Array<String> values("a", "b", "c");
    const Collections::Generic::IEnumerable<String>& walked = values;
    ExpectTexts({Row{"a5b", "a" + Int32(5) + "b"}, Row{"v1.2", String("v") + Version(1, 2)},
                 Row{"1.2v", Version(1, 2) + String("v")}, Row{"1.21.2", Version(1, 2) + Version(1, 2)},
                 Row{"abc", String::Concat(walked)}, Row{"ab", String::Concat("a", "b")},
                 Row{"abcd", String::Concat("a", "b", "c", "d")}, Row{"a, b, c", String::Join(", ", values)},
                 Row{"b", String::Join(", ", values, 1, 1)}, Row{"", String::Join(", ", values, 3, 0)}});
    EXPECT_EQ(7, Int32(3) + Int32(4)); // numbers stay numbers
    EXPECT_THROW(String::Join(", ", values, 2, 2), ArgumentOutOfRangeException);
}

TEST(StringTests, ComparesCodePointByCodePointWithNullFirst)
{
    EXPECT_EQ((Numbers{0, -1, 1, -1, 1, -1, -1, 0}),
              (Numbers{String::Compare(nothing, nothing), String::Compare(nothing, ""), String::Compare("", nothing),
                       String::Compare("ab", "abc"), String::Compare("b", "abc"), String::Compare("z", Umlauts),
                       String::Compare("ABC", "abc"), String::Compare("ABC\xC3\x84", "abc\xC3\xA4", true)}));
    EXPECT_EQ((Numbers{0, -1, -1, 0}),
              (Numbers{String::Compare("xxabc", 2, "abd", 0, 2), String::Compare("B", 0, "a", 0, 1),
                       String::Compare("xxabc", 2, "abd", 0, 100), String::Compare("xxabc", 5, "abd", 3, 1)}));
    ExpectEachThrows<ArgumentOutOfRangeException>(
        {[] { String::Compare("a", 2, "a", 0, 1); }, [] { String::Compare("a", 0, "a", 0, -1); }});
    const String text("1");
    EXPECT_TRUE(text.CompareTo(null) == 1 && text.CompareTo(Int32(1)) == 1 && text.CompareTo(String("2")) == -1);
    EXPECT_FALSE(text == nothing || text.Equals(nothing) || text.IsSigned() || text.Equals(Int32(1)));
    const Up<Object> clone(text.Clone());
    EXPECT_TRUE(text != nothing && text.Equals(*clone));
    EXPECT_EQ((97 * 5 + 98) * 5 + 0x20AC, String("ab\xE2\x82\xAC").GetHashCode());
    EXPECT_EQ(static_cast<int>(0xC0E65D24U), String("abcdefghijklmno\xE2\x82\xAC").GetHashCode()); // wraps at 32 bits
}

TEST(StringTests, SearchesForward)
{
    const String text("a\xC3\xA4xax");
    const Array<char32> either(U'x', U'\u00E4');
    EXPECT_EQ((Numbers{0, 2, 4, -1, -1}), (Numbers{text.IndexOf(U'a'), text.IndexOf(U'x'), text.IndexOf(U'x', 3),
                                                   text.IndexOf(U'x', 3, 1), text.IndexOf(U'x', 5)}));
    EXPECT_EQ((Numbers{0, 2, 3, 5}),
              (Numbers{text.IndexOf("a"), text.IndexOf("x"), text.IndexOf("ax", 1), text.IndexOf("", 5)}));
    EXPECT_EQ(-1, text.IndexOf("ax", 0, 4)); // the match must lie in the range
    EXPECT_EQ((Numbers{0, 1, 2}),
              (Numbers{text.IndexOfAny(Array<char32>(U'a')), text.IndexOfAny(either), text.IndexOfAny(either, 2)}));
    EXPECT_TRUE(text.Contains("\xC3\xA4x") && text.Contains("a") && !text.Contains("b"));
    for (const auto& [start, count] : {std::pair{-1, 0}, {0, -1}, {0, 6}, {6, 0}, {3, 3}})
    {
        EXPECT_THROW(text.IndexOf(U'x', start, count), ArgumentOutOfRangeException);
        EXPECT_THROW(text.IndexOf("x", start, count), ArgumentOutOfRangeException);
    }
    EXPECT_THROW(text.IndexOf(U'x', Int32::MinValue), ArgumentOutOfRangeException);
}

TEST(StringTests, SearchesBackward)
{
    const String text("a\xC3\xA4xax");
    const String empty;
    EXPECT_EQ((Numbers{4, 2, -1, -1}), (Numbers{text.LastIndexOf(U'x'), text.LastIndexOf(U'x', 3),
                                                text.LastIndexOf(U'x', 1, 2), empty.LastIndexOf(U'a', 0)}));
    EXPECT_EQ((Numbers{3, -1, 3, 4}), (Numbers{text.LastIndexOf("ax"), text.LastIndexOf("ax", 3),
                                               text.LastIndexOf("ax", 4, 2), text.LastIndexOf("")}));
    EXPECT_EQ((Numbers{-1, -1, 0, 0}), (Numbers{empty.LastIndexOf(U'a'), empty.LastIndexOf("a"), empty.LastIndexOf(""),
                                                empty.LastIndexOf("", 0, 0)}));
    EXPECT_EQ((Numbers{4, 3, 1}),
              (Numbers{text.LastIndexOfAny(Array<char32>(U'x')), text.LastIndexOfAny(Array<char32>(U'a', U'\u00E4')),
                       text.LastIndexOfAny(Array<char32>(U'a', U'\u00E4'), 2, 2)}));
    using Range = std::tuple<String, int, int>;
    for (const auto& [searched, start, count] :
         {Range{text, -1, 0}, Range{text, 5, 1}, Range{text, 2, 4}, Range{text, 2, -1}, Range{empty, -1, 0},
          Range{empty, 0, 1}, Range{empty, 1, 0}, Range{empty, 0, -1}})
    {
        EXPECT_THROW(searched.LastIndexOf(U'x', start, count), ArgumentOutOfRangeException);
        EXPECT_THROW(searched.LastIndexOf("x", start, count), ArgumentOutOfRangeException);
        EXPECT_THROW(searched.LastIndexOfAny(Array<char32>(U'x'), start, count), ArgumentOutOfRangeException);
    }
    EXPECT_THROW(text.LastIndexOf(U'x', Int32::MaxValue), ArgumentOutOfRangeException);
}

TEST(StringTests, CutsInsertsRemovesAndReplaces)
{
    const String text(Umlauts);
    ExpectTexts({Row{"", text.Substring(3)}, Row{"\xC3\xBC", text.Substring(2)}, Row{"\xC3\xB6", text.Substring(1, 1)},
                 Row{"\xC3\xB6\xC3\xBC", text.Substring(1, 100)}, // cut down to the end
                 Row{"\xC3\xB6\xC3\xBC", text.Substring(1, -1)},  // all that remains
                 Row{"", text.Substring(3, 2)}, Row{"\xC3\xA4x\xC3\xB6\xC3\xBC", text.Insert(1, "x")},
                 Row{"\xC3\xA4\xC3\xB6\xC3\xBCx", text.Insert(3, "x")}, Row{"\xC3\xA4\xC3\xBC", text.Remove(1, 1)},
                 Row{"\xC3\xA4", text.Remove(1)}, Row{"\xC3\xA4o\xC3\xBC", text.Replace(U'\u00F6', U'o')},
                 Row{"aaaa", String("abab").Replace("b", "a")}, Row{"aab", String("aaab").Replace("aab", "ab")},
                 Row{"ba", String("aaa").Replace("aa", "b")}, // goes on behind the insertion
                 Row{"", String("aa").Replace("a", "")}, Row{"aa", String("aa").Replace("", "b")}});
    ExpectEachThrows<ArgumentOutOfRangeException>({[&] { text.Substring(4); }, [&] { text.Substring(-1); },
                                                   [&] { text.Substring(0, -2); }, [&] { text.Insert(4, "x"); },
                                                   [&] { text.Remove(2, 2); }});
    EXPECT_TRUE(text.StartsWith("") && text.EndsWith("") && text.StartsWith("\xC3\xA4") && text.EndsWith("\xC3\xBC"));
    EXPECT_FALSE(text.StartsWith("\xC3\x84") || text.StartsWith(text + "x") || text.EndsWith(text + "x"));
    EXPECT_TRUE(text.StartsWith("\xC3\x84", true) && text.EndsWith("\xC3\x9C", true));
}

TEST(StringTests, PadsTrimsAndMapsCase)
{
    ExpectTexts({Row{"  \xC3\xA4", String("\xC3\xA4").PadLeft(3)}, Row{"ab**", String("ab").PadRight(4, U'*')},
                 Row{"ab  ", String("ab").PadRight(4)}, Row{"ab", String("ab").PadLeft(-1)},
                 Row{"", String("***").TrimEnd(U'*')}, Row{"", String("***").TrimStart(U'*')},
                 Row{"a*b", String("**a*b*").Trim(U'*')}, Row{"a*b*", String("**a*b*").TrimStart(U'*')},
                 Row{"\xC3\xB6", String(Umlauts).Trim(Array<char32>(U'\u00E4', U'\u00FC'))},
                 Row{"b*", String("a*b*").TrimStart(Array<char32>(U'a', U'*'))},
                 Row{"a*b", String("a*b*").TrimEnd(Array<char32>(U'a', U'*'))},
                 Row{"az09\xC3\xA4\xC3\x9F", String("AZ09\xC3\x84\xC3\x9F").ToLower()},
                 Row{"AZ09\xC3\x84\xC3\x9F", String("az09\xC3\xA4\xC3\x9F").ToUpper()}});
}

TEST(StringTests, SplitsByTheRulesOfItsSteps)
{
    using Case = std::tuple<const char*, int, StringSplitOptions, std::vector<std::string>>;
    constexpr auto None = StringSplitOptions::None;
    constexpr auto RemoveEmpty = StringSplitOptions::RemoveEmptyEntries;
    // A separator at the very end adds nothing.
    for (const auto& [text, count, options, parts] :
         {Case{"a,b,,c", 2, None, {"a", "b,,c"}}, Case{"a,,b", 9, RemoveEmpty, {"a", "b"}},
          Case{"a,,b", 9, None, {"a", "", "b"}}, Case{"a;b,c", 9, None, {"a", "b", "c"}}, Case{"a,b", 0, None, {}},
          Case{"a,b", 1, None, {"a,b"}}, Case{"a,b,", 9, None, {"a", "b"}}, Case{",a", 9, None, {"", "a"}},
          Case{",", 9, None, {""}}, Case{"", 9, None, {}}, Case{",,", 9, RemoveEmpty, {}},
          Case{"a,b,", 2, None, {"a", "b,"}}, Case{"a,,b,c", 2, RemoveEmpty, {"a", "b,c"}},
          Case{"\xC3\xA4,\xC3\xB6", 9, None, {"\xC3\xA4", "\xC3\xB6"}}})
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
    const auto backwards = text.GetReverseEnumerator();
    EXPECT_EQ("z\xC3\xB6x", Characters(*backwards));
    backwards->Reset();
    EXPECT_EQ("z\xC3\xB6x", Characters(*backwards));
    EXPECT_EQ("", Characters(*String().GetEnumerator()));

    String::Enumerator walk(text);
    EXPECT_THROW(walk.Current(), InvalidOperationException);
    EXPECT_EQ(text.Utf8(), Characters(walk));
    EXPECT_FALSE(walk.MoveNext());
    walk.Reset();
    EXPECT_EQ(text.Utf8(), Characters(walk));
}
