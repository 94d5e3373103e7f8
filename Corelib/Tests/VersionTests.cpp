#include <Tests/Support/CoreTest.h>

#include <Core/System/Environment.h>
#include <Core/System/OperatingSystem.h>
#include <Core/System/Version.h>

using namespace Tesmo;
using namespace Tesmo::System;

TEST(VersionTests, TextHoldsWhatIsGivenAndNothingNegative)
{
    for (const char* const text : {"1.2", "1.2.3", "0.0.0.0", "2147483647.1.2.3"})
    {
        EXPECT_EQ(text, Version::Parse(text).ToString().Utf8());
    }
    EXPECT_EQ("1.2.3.4", Version(1, 2, 3, 4).ToString().Utf8());
    EXPECT_EQ("0.0", Version().ToString().Utf8());
    EXPECT_EQ("7.0", Version::Parse("7").ToString().Utf8());
    EXPECT_THROW(Version(-1, 0), ArgumentOutOfRangeException);
    EXPECT_THROW(Version(0, -1), ArgumentOutOfRangeException);
    EXPECT_THROW(Version(0, 0, -1), ArgumentOutOfRangeException);
    EXPECT_THROW(Version(0, 0, 0, -1), ArgumentOutOfRangeException);
    EXPECT_THROW(Version::Parse("1.-2"), ArgumentOutOfRangeException);
    EXPECT_THROW(Version::Parse("1..2"), FormatException);
    EXPECT_THROW(Version::Parse("1.2.3.4.5"), FormatException);
    EXPECT_THROW(Version::Parse("2147483648.0"), OverflowException);
}

TEST(VersionTests, TheFirstDifferenceDecides)
{
    const Version ascending[] = {Version(1, 2),    Version(1, 2, 0), Version(1, 2, 0, 9),
                                 Version(1, 2, 1), Version(1, 10),   Version(2, 0)};
    for (const Version& left : ascending)
    {
        for (const Version& right : ascending)
        {
            const auto order = (&left > &right) - (&left < &right);
            EXPECT_EQ(order, left.CompareTo(right)) << left.ToString().Utf8() << " " << right.ToString().Utf8();
            EXPECT_EQ(order == 0, left == right);
            EXPECT_EQ(order == 0, left.Equals(right));
        }
    }
    const Up<Object> copy(Version(1, 2, 3, 4).Clone());
    EXPECT_TRUE(copy->Equals(Version(1, 2, 3, 4)));
    EXPECT_EQ(((1 * 31 + 2) * 31 + 3) * 31 + 4, Version(1, 2, 3, 4).GetHashCode());
}

TEST(OperatingSystemTests, NameVersionAndServicePackPrint)
{
    EXPECT_EQ("Microsoft Windows NT 5.1.2600",
              OperatingSystem(PlatformID::Win32NT, Version(5, 1, 2600)).ToString().Utf8());
    EXPECT_EQ("Unix 6.18.5 Service Pack 8", OperatingSystem(PlatformID::Unix, Version(6, 18, 5)).ToString().Utf8());
    EXPECT_EQ("Android 13.0.5", OperatingSystem(PlatformID::Android, Version(13, 0, 5)).ToString().Utf8());
    EXPECT_THROW(OperatingSystem(static_cast<PlatformID>(9), Version()), ArgumentException);
    EXPECT_THROW(OperatingSystem(static_cast<PlatformID>(-2), Version()), ArgumentException);
    EXPECT_GT(Environment::OSVersion().Version().Major(), 0);
}
