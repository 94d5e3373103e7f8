#include <Tests/Support/CoreTest.h>

#include <Core/System/FormatProvider.h>

#include <cctype>

TEST(CharTests, ClassifiesAsciiAsTheCLibraryDoes)
{
    const std::string symbols = "$+<=>^`|~"; // of the punctuation, what Unicode calls symbols
    for (int code = 0; code < 128; code++)
    {
        SCOPED_TRACE(code);
        const char32 c(code);
        const bool isSymbol = symbols.find(static_cast<char>(code)) != std::string::npos;
        EXPECT_EQ(std::isdigit(code) != 0, Char::IsDigit(c));
        EXPECT_EQ(std::isdigit(code) != 0, Char::IsNumber(c));
        EXPECT_EQ(std::isalpha(code) != 0, Char::IsLetter(c));
        EXPECT_EQ(std::isalnum(code) != 0, Char::IsLetterOrDigit(c));
        EXPECT_EQ(std::islower(code) != 0, Char::IsLower(c));
        EXPECT_EQ(std::isupper(code) != 0, Char::IsUpper(c));
        EXPECT_EQ(std::ispunct(code) != 0 && !isSymbol, Char::IsPunctuation(c));
        EXPECT_EQ(isSymbol && code != 0, Char::IsSymbol(c));
        EXPECT_EQ(std::isspace(code) != 0, Char::IsWhiteSpace(c));
        EXPECT_EQ(std::iscntrl(code) != 0, Char::IsControl(c));
        EXPECT_EQ(code == ' ', Char::IsSeparator(c));
        EXPECT_EQ(std::tolower(code), static_cast<int>(Char::ToLower(c).value));
        EXPECT_EQ(std::toupper(code), static_cast<int>(Char::ToUpper(c).value));
    }
}

TEST(CharTests, ClassifiesACharacterOfATextAsTheCharacterItself)
{
    using Row = std::pair<bool (*)(char32), bool (*)(const String&, int)>;
    for (const char32 c : {U'a', U'A', U'1', U'+', U'.', U' ', U'\n'})
    {
        for (const auto& [ofCharacter, ofText] :
             {Row(Char::IsDigit, Char::IsDigit), Row(Char::IsNumber, Char::IsNumber),
              Row(Char::IsLetter, Char::IsLetter), Row(Char::IsLetterOrDigit, Char::IsLetterOrDigit),
              Row(Char::IsLower, Char::IsLower), Row(Char::IsUpper, Char::IsUpper),
              Row(Char::IsPunctuation, Char::IsPunctuation), Row(Char::IsSymbol, Char::IsSymbol),
              Row(Char::IsWhiteSpace, Char::IsWhiteSpace), Row(Char::IsControl, Char::IsControl),
              Row(Char::IsSeparator, Char::IsSeparator)})
        {
            EXPECT_EQ(ofCharacter(c), ofText(String(c, 2), 1)) << c.value;
        }
    }
}

TEST(CharTests, KnowsCharactersBeyondAscii)
{
    EXPECT_TRUE(Char::IsLower(U'\u00DF') && Char::IsLower(U'\u00E4') && Char::IsUpper(U'\u0416'));
    EXPECT_TRUE(Char::IsNumber(U'\u00BD') && !Char::IsDigit(U'\u00BD'));
    EXPECT_TRUE(Char::IsSymbol(U'\u20AC') && Char::IsPunctuation(U'\u2026') && Char::IsSeparator(U'\u2028'));
    EXPECT_TRUE(Char::IsWhiteSpace(U'\u00A0') && Char::IsWhiteSpace(U'\u0085') && Char::IsControl(U'\u0085'));
    EXPECT_FALSE(Char::IsLetter(char32(0xFFFFFFFFU)));
    EXPECT_EQ(char32(0x1E921), Char::ToUpper(char32(0x1E943)));
    for (const char32 c : {U'\u0136', U'\u0137'}) // a range where the cases take turns
    {
        EXPECT_EQ(char32(U'\u0137'), Char::ToLower(c));
    }
}

TEST(CharTests, IsAValueOfOneCharacterThatMayStandInAText)
{
    const Char euro(U'\u20AC');
    for (const String& text : {euro.ToString(), String::Format("{0}", euro), euro.ToString("X8")})
    {
        EXPECT_EQ("\xE2\x82\xAC", text.Utf8());
    }
    EXPECT_TRUE(euro.GetHashCode() == 0x20AC && euro.ToInt32(FormatProvider::Default()) == 0x20AC);
    EXPECT_TRUE(euro.CompareTo(Char(U'a')) == 1 && euro.CompareTo(Int32(0xFFFF)) == 1);
    const auto& provider = FormatProvider::Default();
    EXPECT_EQ("x20ac", ("x" + provider.Format("x", Int32(0x20AC), provider)).Utf8());
    EXPECT_EQ("text", provider.Format("x", String("text"), provider).Utf8());
    EXPECT_TRUE(provider.Format("x", null, provider).IsEmpty());
    EXPECT_EQ(char32(U'\u20AC'), Char::Parse("\xE2\x82\xAC"));
    EXPECT_TRUE(euro.ToChar(provider) == char32(U'\u20AC') && euro.ToDateTime(provider) == DateTime(0x20AC));
    EXPECT_THROW(Char::Parse("ab"), FormatException);
    ExpectEachThrows<ArgumentNullException>(
        {[&] { euro.ToString(null); }, [] { Char::Parse(null); }, [] { Char::IsLetter(null, 0); }});
    ExpectEachThrows<ArgumentOutOfRangeException>({[] { Char::IsDigit("a1", 2); }, [] { Char::IsLetter("a1", -1); }});
}
