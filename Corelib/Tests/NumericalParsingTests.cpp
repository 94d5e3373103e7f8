#include <Tests/Support/CoreTest.h>

#include <Core/System/SafeMath.h>

namespace
{
/// What parsing gives: the number, or the class of the failure by its first letter.
template <class W>
String Outcome(const char* text, int base)
{
    typename W::Primitive tried = 77;
    const bool parsed = W::TryParse(text, base, tried);
    try
    {
        const auto number = W::Parse(text, base);
        EXPECT_TRUE(parsed && tried == number) << text;
        return W(number).ToString();
    }
    catch (const SystemException& failure)
    {
        EXPECT_TRUE(!parsed && tried == 77) << text;
        return failure.GetType().Name().Substring(0, 1);
    }
}
} // namespace

TEST(NumericalParsingTests, IntegersOfEveryBase)
{
    using Row = std::tuple<const char*, int, const char*>;
    for (const auto& [text, base, outcome] :
         {Row{"0xFF", 16, "255"}, Row{"-0Xff", 16, "-255"}, Row{"xFF", 16, "F"}, Row{"10xFF", 16, "F"},
          Row{"0x", 16, "F"}, Row{"0xFFFFFFFF", 16, "-1"}, Row{"80000000", 16, "-2147483648"},
          Row{"-80000000", 16, "-2147483648"}, Row{"-80000001", 16, "O"}, Row{"100000000", 16, "O"},
          Row{"37777777777", 8, "-1"}, Row{"0b101", 2, "5"}, Row{"101b", 2, "5"}, Row{"b", 2, "F"}, Row{"1b1", 2, "F"},
          Row{"Vv", 32, "1023"}, Row{"w", 32, "F"}, Row{"  -12  ", 10, "-12"}, Row{"+7", 10, "7"}})
    {
        EXPECT_EQ(outcome, Outcome<Int32>(text, base).Utf8()) << text << " base " << base;
    }
    for (const char* const text : {"", "   ", "-", "--1", "- 1", "1 2", "1\t", "0x10", "12a", "x-1"})
    {
        EXPECT_EQ("F", Outcome<Int32>(text, 10).Utf8()) << text;
    }
}

TEST(NumericalParsingTests, IntegersOfEveryWidthKnowTheirLimits)
{
    using Row = TextRow;
    ExpectTexts({Row{"2147483647", Outcome<Int32>("2147483647", 10)}, Row{"O", Outcome<Int32>("2147483648", 10)},
                 Row{"-2147483648", Outcome<Int32>("-2147483648", 10)}, Row{"O", Outcome<Int32>("-2147483649", 10)},
                 Row{"5", Outcome<Int32>("0000000000000000000000000000000005", 10)},
                 Row{"O", Outcome<Int32>("99999999999999999999999999", 10)}, Row{"0", Outcome<UInt32>("-0", 10)},
                 Row{"O", Outcome<UInt32>("-1", 10)},
                 Row{"O", Outcome<UInt32>("x-1", 10)}, // read from the back: the sign comes first
                 Row{"F", Outcome<UInt32>("x-0", 10)}, Row{"4294967295", Outcome<UInt32>("ffffffff", 16)},
                 Row{"O", Outcome<UInt32>("4294967296", 10)}, Row{"255", Outcome<Byte>("255", 10)},
                 Row{"O", Outcome<Byte>("256", 10)}, Row{"-1", Outcome<SByte>("FF", 16)},
                 Row{"18446744073709551615", Outcome<UInt64>("18446744073709551615", 10)},
                 Row{"O", Outcome<UInt64>("18446744073709551616", 10)},
                 Row{"-9223372036854775808", Outcome<Int64>("-9223372036854775808", 10)},
                 Row{"-1", Outcome<Int64>("FFFFFFFFFFFFFFFF", 16)}});
}

TEST(NumericalParsingTests, BadArgumentsAreRefused)
{
    int number = 5;
    bool truth = true;
    ExpectEachThrows<ArgumentNullException>(
        {[] { Int32::Parse(null); }, [] { Double::Parse(null); }, [] { Boolean::Parse(null); }});
    EXPECT_FALSE(Int32::TryParse(null, number) || Boolean::TryParse(null, truth));
    for (const int base : {-1, 0, 1, 33})
    {
        EXPECT_THROW(Int32::Parse("1", base), ArgumentException);
        EXPECT_FALSE(Int32::TryParse("1", base, number));
    }
    EXPECT_TRUE(number == 5 && truth);
}

TEST(NumericalParsingTests, FloatingNumbers)
{
    EXPECT_TRUE(Double::Parse(" 1.5 ") == 1.5 && Double::Parse("-.25e2") == -25.0 && Double::Parse("+3.") == 3.0);
    EXPECT_TRUE(Single::Parse("0.1") == 0.1F && Double::Parse("-Infinity") == Double::NegativeInfinity);
    EXPECT_NE(Double::Parse("NaN"), Double::Parse("NaN"));
    for (const char* const text : {"", " ", ".", "-", "+-1", "--1", "1e", "1,5", "inf", "nan", "0x1", "1 2", "- 1"})
    {
        double result = 7;
        EXPECT_THROW(Double::Parse(text), FormatException) << text;
        EXPECT_TRUE(!Double::TryParse(text, result) && result == 7) << text;
    }
    float single = 0;
    EXPECT_TRUE(Single::TryParse("1.5", single) && single == 1.5F);
    ExpectEachThrows<OverflowException>({[] { Double::Parse("1e999"); }, [] { Single::Parse("1e39"); }});
}

TEST(NumericalParsingTests, TruthValues)
{
    bool result = false;
    EXPECT_TRUE(Boolean::Parse(" tRuE ") && !Boolean::Parse("False") && Boolean::TryParse("TRUE", result) && result);
    for (const char* const text : {"", " ", "1", "true\t", "t rue", "truefalse"})
    {
        EXPECT_THROW(Boolean::Parse(text), FormatException) << text;
        EXPECT_FALSE(Boolean::TryParse(text, result) || !result) << text;
    }
}

TEST(NumericalParsingTests, SafeMathReportsOverflow)
{
    constexpr std::uint64_t largest = UInt64::MaxValue;
    EXPECT_TRUE(SafeMath::Add(largest - 1, 1) == largest && SafeMath::Multiply(largest / 2, 2) == largest - 1);
    EXPECT_EQ(0U, SafeMath::Multiply(largest, 0));
    ExpectEachThrows<OverflowException>(
        {[] { SafeMath::Add(largest, 1); }, [] { SafeMath::Multiply(largest / 2 + 1, 2); }});
}
