#include <Tests/Support/CoreTest.h>

#include <Core/System/NumericalFormat.h>

TEST(NumericalFormatTests, FormatsAreTakenApart)
{
    using Row = std::tuple<const char*, char, int>;
    char32 letter;
    int precision = 0;
    for (const auto& [format, wantedLetter, wantedPrecision] :
         {Row{"", 'G', 0}, Row{"D4", 'd', 4}, Row{"P", 'p', 0}, Row{"B8", 'b', 8}, Row{"N2", 'n', 2}, Row{"F0", 'f', 0},
          Row{"g", 'g', 0}, Row{"G7", 'G', 7}, Row{"x2", 'x', 2}, Row{"X", 'X', 0}, Row{"Z9", 0, 0}, Row{"d4x", 0, 0},
          Row{"d-4", 0, 0}, Row{"d123456789", 'd', 123456789}, Row{"d1234567890", 0, 0}})
    {
        precision = -1;
        NumericalFormat::ParseFormat(format, letter, precision);
        EXPECT_EQ(char32(wantedLetter), letter) << format;
        EXPECT_EQ(wantedPrecision, precision) << format;
    }
    ExpectEachThrows<ArgumentNullException>(
        {[&] { NumericalFormat::ParseFormat(null, letter, precision); }, [] { Int32(1).ToString(null); }});
}

TEST(NumericalFormatTests, IntegersPrintAsDigitsOrAsDecimalFractions)
{
    using Row = std::tuple<int, const char*, const char*>;
    const auto expect = [](std::initializer_list<Row> rows)
    {
        for (const auto& [value, format, text] : rows)
        {
            EXPECT_EQ(text, Int32(value).ToString(format).Utf8()) << value << " by " << format;
        }
    };
    expect({Row{-5, "d2", "-05"}, Row{-5, "d3", "-005"}, Row{-55, "d2", "-55"}, Row{5, "D4", "0005"}, Row{0, "d", "0"},
            Row{Int32::MinValue, "d", "-2147483648"}, Row{255, "x", "ff"}, Row{255, "X8", "000000FF"},
            Row{-1, "x10", "00ffffffff"}, Row{5, "b", "101"}, Row{5, "b8", "00000101"},
            Row{-1, "b", "11111111111111111111111111111111"}, Row{12345, "", "12345"}, Row{1, "Z9", "Z9"},
            Row{1, "y", "y"}, Row{1, "dd", ""}});
    expect({Row{7, "f", "7.00"}, Row{7, "f3", "7.000"}, Row{7, "f0", "7."}, Row{1234567, "n", "1,234,567.00"},
            Row{-123456, "n1", "-123,456.0"}, Row{-123, "n1", "-123.0"}, Row{12, "p", "1,200 %"},
            Row{-12, "p1", "-1,200.0 %"}, Row{0, "p", "0 %"}, Row{0, "p2", "0.00 %"}, Row{12345, "g", "12345"},
            Row{12345, "g3", "1.23e+04"}, Row{-12345, "G3", "-1.23E+04"}});
}

TEST(NumericalFormatTests, WidthOfTheTypeDecidesThePattern)
{
    using Row = TextRow;
    ExpectTexts({Row{"80", SByte(-128).ToString("x")}, Row{"10000000", SByte(-128).ToString("b")},
                 Row{"fffe", Int16(-2).ToString("x")}, Row{"ffffffffffffffff", Int64(-1).ToString("x")},
                 Row{"18446744073709551615", UInt64(UInt64::MaxValue).ToString()},
                 Row{"1.844674407E+19", UInt64(UInt64::MaxValue).ToString("G")},
                 Row{"-9223372036854775808", Int64(Int64::MinValue).ToString()},
                 Row{"999999999999999999", Int64(999999999999999999).ToString("g19")}});
}

TEST(NumericalFormatTests, FloatingNumbersPrintByTheirFormatAndRefuseThoseOfIntegers)
{
    using Row = std::tuple<double, const char*, const char*>;
    for (const auto& [value, format, text] :
         {Row{0.1, "g", "0.1"}, Row{0.1, "g17", "0.10000000000000001"}, Row{1e15, "g", "1e+15"},
          Row{1e-7, "G", "1E-07"}, Row{1e300, "", "1E+300"}, Row{-0.0, "g", "0"}, Row{1.005, "f", "1.00"},
          Row{2.5, "f0", "2"}, Row{-0.001, "f", "0.00"}, Row{1234567.891, "n", "1,234,567.89"},
          Row{-1234.5, "n0", "-1,234"}, Row{0.1234, "p", "12.34 %"}, Row{12.5, "p0", "1250 %"}})
    {
        EXPECT_EQ(text, Double(value).ToString(format).Utf8()) << value << " by " << format;
    }
    ExpectTexts({TextRow{"0.1", Single(0.1F).ToString()},
                 TextRow{"3.40282346638529e+38", Double(Single::MaxValue).ToString()},
                 TextRow{"Infinity", Double(Double::PositiveInfinity).ToString()},
                 TextRow{"-Infinity", Single(Single::NegativeInfinity).ToString("f")},
                 TextRow{"-Infinity", Double(Double::MinValue).ToString("p")}}); // a hundred times it is
    EXPECT_EQ(1 + 1 + 2000, Double(1).ToString("f2000").Length());
    for (const char* const format : {"d", "x", "X", "b", "0.00"})
    {
        EXPECT_EQ("NaN", Double(Double::NaN).ToString(format).Utf8());
        EXPECT_THROW(Double(1).ToString(format), FormatException) << format;
    }
}
