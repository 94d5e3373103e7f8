#include "CoreTest.h"

#include <Core/System/DateTime.h>
#include <Core/System/Version.h>

using namespace Tesmo;
using namespace Tesmo::System;

namespace
{
template <class... Args>
std::string Text(const char* format, const Args&... args)
{
    return String::Format(format, args...).Utf8();
}

template <class... Args>
std::string Failure(const char* format, const Args&... args)
{
    try
    {
        return "no failure: " + Text(format, args...);
    }
    catch (const FormatException& failure)
    {
        return failure.Message().Utf8();
    }
}

const char* const NotClosed = "An opened bracket '{' is not closed by '}'";
const char* const NotOpened = "Closing bracket '}' found without matching '{'";
} // namespace

TEST(StringFormatTests, BracketsAreEscapedByDoublingThem)
{
    EXPECT_EQ("", Text(""));
    EXPECT_EQ("plain", Text("plain"));
    EXPECT_EQ("{0}", Text("{{0}}"));
    EXPECT_EQ("}", Text("}}"));
    EXPECT_EQ("{7}", Text("{{{0}}}", 7));
}

TEST(StringFormatTests, BracketsWithoutPartnerAreReported)
{
    EXPECT_EQ(NotClosed, Failure("{0", 1));
    EXPECT_EQ(NotClosed, Failure("{"));
    EXPECT_EQ(NotClosed, Failure("{u41"));
    EXPECT_EQ(NotOpened, Failure("}"));
    EXPECT_EQ(NotOpened, Failure("a}b"));
    EXPECT_EQ(NotOpened, Failure("{0}}", 1));
}

TEST(StringFormatTests, IndexMustNameAnArgument)
{
    EXPECT_EQ("Index out of bounds (used 1 where the number of Arguments is 1)", Failure("{1}", 1));
    EXPECT_EQ("Index out of bounds (used -1 where the number of Arguments is 2)", Failure("{-1}", 1, 2));
    EXPECT_EQ("Index out of bounds (used 0 where the number of Arguments is 0)", Failure("{0}"));
    const char* const defaultMessage = "One of identified items is an invalid format.";
    EXPECT_EQ(defaultMessage, Failure("{}", 1));
    EXPECT_EQ(defaultMessage, Failure("{a}", 1));
    EXPECT_EQ(defaultMessage, Failure("{0,}", 1));
    EXPECT_EQ(defaultMessage, Failure("{0,x}", 1));
    EXPECT_THROW(Text("{99999999999}", 1), OverflowException);
}

TEST(StringFormatTests, AlignmentCountsCodePoints)
{
    EXPECT_EQ("[   42]", Text("[{0,5}]", 42));
    EXPECT_EQ("[42   ]", Text("[{0,-5}]", 42));
    EXPECT_EQ("[12345]", Text("[{0,3}]", 12345));
    EXPECT_EQ("[  \xC3\xA4]", Text("[{0,3}]", "\xC3\xA4"));
    EXPECT_EQ("[   ]", Text("[{0,3}]", null));
}

TEST(StringFormatTests, EscapedCodePointsAreHexadecimal)
{
    EXPECT_EQ("A\xE2\x82\xAC", Text("{u41}{U20ac}"));
    EXPECT_THROW(Text("{u}"), FormatException);
    EXPECT_THROW(Text("{uxyz}"), FormatException);
}

TEST(StringFormatTests, ArgumentsOfEveryKindPrint)
{
    const String text("text");
    const String& nothing = null;
    const char* const noBytes = nullptr;
    EXPECT_EQ("-1 200 -3 4 5", Text("{0} {1} {2} {3} {4}", static_cast<signed char>(-1),
                                    static_cast<unsigned char>(200), static_cast<short>(-3), 4U, 5LL));
    EXPECT_EQ("True False", Text("{0} {1}", true, false));
    EXPECT_EQ("0.5 0.25", Text("{0} {1}", 0.5, 0.25F));
    EXPECT_EQ("text bytes", Text("{0} {1}", text, "bytes"));
    EXPECT_EQ("c\xC3\xA4", Text("{0}{1}", 'c', char32(0xE4)));
    EXPECT_EQ("[][][]", Text("[{0}][{1}][{2}]", nothing, noBytes, null));
    EXPECT_EQ("10 a 10", Text("{0} {1:x} {0}", Int32(10), Int32(10)));
    EXPECT_EQ("1.2", Text("{0}", Version(1, 2)));
}

TEST(StringFormatTests, FormatStringReachesTheArgument)
{
    EXPECT_EQ("000000FF", Text("{0:X8}", 255));
    EXPECT_EQ("ffffffff", Text("{0:x}", -1));
    EXPECT_EQ("ff", Text("{0:x}", static_cast<signed char>(-1)));
    EXPECT_EQ("0x08d4b7a1c2d3e4f5", Text("0x{0:x16}", 0x08D4B7A1C2D3E4F5LL));
    EXPECT_EQ("1970", Text("{0:%Y}", DateTime(621355968000000000)));
    const DateTime epoch(621355968000000000);
    const Object& unknown = epoch;
    EXPECT_EQ("00:00", Text("{0:%H:%M}", unknown));
    EXPECT_EQ("  7f", Text("{0,4:x}", 127));
}

TEST(StringFormatTests, IntegersWithoutFormatUseTheGeneralOne)
{
    EXPECT_EQ("2147483647 -2147483648 4294967295", Text("{0} {1} {2}", Int32::MaxValue, Int32::MinValue, 4294967295U));
    EXPECT_EQ("9999999999 1E+10", Text("{0} {1}", 9999999999LL, 10000000000LL));
}

TEST(StringFormatTests, ArgumentsMayStandInAnArray)
{
    const Array<Sp<Object>> list(Sp<Object>(new Int32(1)), Sp<Object>(), Sp<Object>(new String("c")));
    EXPECT_EQ("1--c", Text("{0}-{1}-{2}", list));
    EXPECT_EQ("Index out of bounds (used 3 where the number of Arguments is 3)", Failure("{3}", list));
}

TEST(StringFormatTests, NullIsRefused)
{
    const String& noFormat = null;
    const IFormatProvider& noProvider = null;
    const Array<Sp<Object>>& noList = null;
    EXPECT_THROW(String::Format(noFormat, 1), ArgumentNullException);
    EXPECT_THROW(String::Format(noProvider, "{0}", 1), ArgumentNullException);
    EXPECT_THROW(String::Format("{0}", noList), ArgumentNullException);
}
