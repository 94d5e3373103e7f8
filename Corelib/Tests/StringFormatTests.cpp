#include <Tests/Support/CoreTest.h>

namespace
{
template <class... Args>
String Text(const char* format, const Args&... args)
{
    return String::Format(format, args...);
}

using Row = std::tuple<const char*, const char*>;

template <class T>
concept Formats = requires(const T& value)
{
    String::Format("{0}", value);
};
static_assert(Formats<bool> && Formats<const char*> && Formats<char[2]> && Formats<String>);
static_assert(!Formats<int*> && !Formats<String*> && !Formats<void (*)()>, "a pointer is no truth value");
} // namespace

TEST(StringFormatTests, BracketsAreEscapedByDoublingThemAndCodePointsByTheirNumber)
{
    for (const auto& [format, text] : {Row{"", ""}, Row{"plain", "plain"}, Row{"{{0}}", "{0}"}, Row{"}}", "}"},
                                       Row{"{{{0}}}", "{7}"}, Row{"{u41}{U20ac}", "A\xE2\x82\xAC"}})
    {
        EXPECT_EQ(text, Text(format, 7).Utf8()) << format;
    }
}

TEST(StringFormatTests, WhatIsNoItemIsReported)
{
    const char* const notClosed = "An opened bracket '{' is not closed by '}'";
    const char* const notOpened = "Closing bracket '}' found without matching '{'";
    const char* const invalid = "One of identified items is an invalid format.";
    for (const auto& [format, message] :
         {Row{"{0", notClosed}, Row{"{", notClosed}, Row{"{u41", notClosed}, Row{"}", notOpened}, Row{"a}b", notOpened},
          Row{"{0}}", notOpened}, Row{"{1}", "Index out of bounds (used 1 where the number of Arguments is 1)"},
          Row{"{-1}", "Index out of bounds (used -1 where the number of Arguments is 1)"}, Row{"{}", invalid},
          Row{"{a}", invalid}, Row{"{0,}", invalid}, Row{"{0,x}", invalid}, Row{"{u}", ""}, Row{"{uxyz}", ""}})
    {
        EXPECT_THAT([text = format] { Text(text, 1); },
                    testing::ThrowsMessage<FormatException>(testing::HasSubstr(message)))
            << format;
    }
    EXPECT_THAT([] { Text("{0}"); }, testing::ThrowsMessage<FormatException>(testing::HasSubstr("Arguments is 0)")));
    EXPECT_THROW(Text("{99999999999}", 1), OverflowException);
}

TEST(StringFormatTests, ArgumentsOfEveryKindPrintByTheirFormatAndPadded)
{
    const DateTime epoch(621355968000000000);
    const Object& unknown = epoch;
    const String text("text");
    const String& nothing = null;
    const char* const noBytes = nullptr;
    const Array<Sp<Object>> list(Sp<Object>(new Int32(1)), Sp<Object>(), Sp<Object>(new String("c")));
    using Case = TextRow;
    ExpectTexts(
        {Case{"[   42][42   ][42]", Text("[{0,5}][{0,-5}][{0,1}]", 42)},
         Case{"[  \xC3\xA4]", Text("[{0,3}]", "\xC3\xA4")}, Case{"[   ]", Text("[{0,3}]", null)},
         Case{"  7f", Text("{0,4:x}", 127)},
         Case{"-1 200 -3 4 5", Text("{0} {1} {2} {3} {4}", static_cast<signed char>(-1),
                                    static_cast<unsigned char>(200), static_cast<short>(-3), 4U, 5LL)},
         Case{"2147483647 -2147483648 4294967295", Text("{0} {1} {2}", Int32::MaxValue, Int32::MinValue, 4294967295U)},
         Case{"9999999999 1E+10", Text("{0} {1}", 9999999999LL, 10000000000LL)}, // the general format
         Case{"True False", Text("{0} {1}", true, false)}, Case{"0.5 0.25", Text("{0} {1}", 0.5, 0.25F)},
         Case{"text bytes", Text("{0} {1}", text, "bytes")}, Case{"c\xC3\xA4", Text("{0}{1}", 'c', char32(0xE4))},
         Case{"[][][]", Text("[{0}][{1}][{2}]", nothing, noBytes, null)},
         Case{"10 a 10", Text("{0} {1:x} {0}", Int32(10), Int32(10))}, Case{"1.2", Text("{0}", Version(1, 2))},
         Case{"000000FF ffffffff ff", Text("{0:X8} {1:x} {2:x}", 255, -1, static_cast<signed char>(-1))},
         Case{"0x08d4b7a1c2d3e4f5", Text("0x{0:x16}", 0x08D4B7A1C2D3E4F5LL)}, Case{"00:00", Text("{0:%H:%M}", unknown)},
         Case{"1--c", Text("{0}-{1}-{2}", list)}});
    EXPECT_THROW(Text("{3}", list), FormatException);
}
