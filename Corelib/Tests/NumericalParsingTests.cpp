#include <Tests/Support/CoreTest.h>

#include <Core/System/SafeMath.h>

using namespace Tesmo;
using namespace Tesmo::System;

namespace
{
/// What parsing gives: the number, or the class of the failure by its first letter.
template <class W>
std::string Outcome(const char* text, int base)
{
    typename W::Primitive tried = 77;
    const bool parsed = W::TryParse(text, base, tried);
    try
    {
        const auto number = W::Parse(text, base);
        EXPECT_TRUE(parsed && tried == number) << text;
        return W(number).ToString().Utf8();
    }
    catch (const SystemException& failure)
    {
        EXPECT_TRUE(!parsed && tried == 77) << text;
        return failure.GetType().Name().Utf8().substr(0, 1);
    }
}
} // namespace

TEST(NumericalParsingTests, DecimalIntegers)
{
    using Row = std::tuple<const char*, const char*>;
    for (const auto& [text, outcome] :
         {Row{"  -12  ", "-12"}, Row{"+7", "7"}, Row{"2147483647", "2147483647"}, Row{"2147483648", "O"},
          Row{"-2147483648", "-2147483648"}, Row{"-2147483649", "O"}, Row{"0000000000000000000000000000000005", "5"},
          Row{"99999999999999999999999999", "O"}})
    {
        EXPECT_EQ(outcome, Outcome<Int32>(text, 10)) << text;
    }
    for (const char* const text : {"", "   ", "-", "--1", "- 1", "1 2", "1\t", "0x10", "12a"})
    {
        EXPECT_EQ("F", Outcome<Int32>(text, 10)) << text;
    }
}

TEST(NumericalParsingTests, IntegersOfOtherBases)
{
    using Row = std::tuple<const char*, int, const char*>;
    for (const auto& [text, base, outcome] :
         {Row{"0xFF", 16, "255"}, Row{"-0Xff", 16, "-255"}, Row{"xFF", 16, "F"}, Row{"10xFF", 16, "F"},
          Row{"0x", 16, "F"}, Row{"0xFFFFFFFF", 16, "-1"}, Row{"80000000", 16, "-2147483648"},
          Row{"-80000000", 16, "-2147483648"}, Row{"-80000001", 16, "O"}, Row{"100000000", 16, "O"},
          Row{"37777777777", 8, "-1"}, Row{"0b101", 2, "5"}, Row{"101b", 2, "5"}, Row{"b", 2, "F"}, Row{"1b1", 2, "F"},
          Row{"Vv", 32, "1023"}, Row{"w", 32, "F"}})
    {
        EXPECT_EQ(outcome, Outcome<Int32>(text, base)) << text << " base " << base;
    }
}

TEST(NumericalParsingTests, OtherWidths)
{
    EXPECT_EQ("0", Outcome<UInt32>("-0", 10));
    EXPECT_EQ("O", Outcome<UInt32>("-1", 10));
    EXPECT_EQ("O", Outcome<UInt32>("x-1", 10)); // read from the back: the sign comes first
    EXPECT_EQ("F", Outcome<UInt32>("x-0", 10));
    EXPECT_EQ("F", Outcome<Int32>("x-1", 10));
    EXPECT_EQ("4294967295", Outcome<UInt32>("ffffffff", 16));
    EXPECT_EQ("O", Outcome<UInt32>("4294967296", 10));
    EXPECT_EQ("255", Outcome<Byte>("255", 10));
    EXPECT_EQ("O", Outcome<Byte>("256", 10));
    EXPECT_EQ("-1", Outcome<SByte>("FF", 16));
    EXPECT_EQ("O", Outcome<SByte>("128", 10));
    EXPECT_EQ("18446744073709551615", Outcome<UInt64>("18446744073709551615", 10));
    EXPECT_EQ("O", Outcome<UInt64>("18446744073709551616", 10));
    EXPECT_EQ("-9223372036854775808", Outcome<Int64>("-9223372036854775808", 10));
    EXPECT_EQ("-1", Outcome<Int64>("FFFFFFFFFFFFFFFF", 16));
}

TEST(NumericalParsingTests, BadArgumentsAreRefused)
{
    int result = 5;
    EXPECT_THROW(Int32::Parse(null), ArgumentNullException);
    EXPECT_FALSE(Int32::TryParse(null, result));
    for (const int base : {-1, 0, 1, 33})
    {
        EXPECT_THROW(Int32::Parse("1", base), ArgumentException);
        EXPECT_FALSE(Int32::TryParse("1", base, result));
    }
    EXPECT_EQ(5, result);
}

TEST(NumericalParsingTests, FloatingNumbers)
{
    EXPECT_EQ(1.5, Double::Parse(" 1.5 "));
    EXPECT_EQ(-25.0, Double::Parse("-.25e2"));
    EXPECT_EQ(3.0, Double::Parse("+3."));
    EXPECT_EQ(0.1F, Single::Parse("0.1"));
    EXPECT_EQ(Double::NegativeInfinity, Double::Parse("-Infinity"));
    EXPECT_NE(Double::Parse("NaN"), Double::Parse("NaN"));
    for (const char* const text : {"", " ", ".", "-", "+-1", "--1", "1e", "1,5", "inf", "nan", "0x1", "1 2", "- 1"})
    {
        double result = 7;
        EXPECT_THROW(Double::Parse(text), FormatException) << text;
        EXPECT_FALSE(Double::TryParse(text, result)) << text;
        EXPECT_EQ(7, result);
    }
    EXPECT_THROW(Double::Parse("1e999"), OverflowException);
    EXPECT_THROW(Single::Parse("1e39"), OverflowException);
    EXPECT_THROW(Double::Parse(null), ArgumentNullException);
}

TEST(NumericalParsingTests, TruthValues)
{
    bool result = false;
    EXPECT_TRUE(Boolean::Parse(" tRuE "));
    EXPECT_FALSE(Boolean::Parse("False"));
    EXPECT_TRUE(Boolean::TryParse("TRUE", result) && result);
    for (const char* const text : {"", " ", "1", "true\t", "t rue", "truefalse"})
    {
        EXPECT_THROW(Boolean::Parse(text), FormatException) << text;
        EXPECT_FALSE(Boolean::TryParse(text, result)) << text;
    }
    EXPECT_THROW(Boolean::Parse(null), ArgumentNullException);
    EXPECT_FALSE(Boolean::TryParse(null, result));
    EXPECT_TRUE(result);
}

TEST(NumericalParsingTests, SafeMathReportsOverflow)
{
    constexpr std::uint64_t largest = UInt64::MaxValue;
    EXPECT_EQ(largest, SafeMath::Add(largest - 1, 1));
    EXPECT_THROW(SafeMath::Add(largest, 1), OverflowException);
    EXPECT_EQ(largest - 1, SafeMath::Multiply(largest / 2, 2));
    EXPECT_EQ(0U, SafeMath::Multiply(largest, 0));
    EXPECT_THROW(SafeMath::Multiply(largest / 2 + 1, 2), OverflowException);
}
