#include <Tests/Support/CoreTest.h>

#include <Core/System/Environment.h>
#include <Core/System/OperatingSystem.h>

TEST(VersionTests, TextHoldsWhatIsGivenAndNothingNegative)
{
    for (const char* const text : {"1.2", "1.2.3", "0.0.0.0", "2147483647.1.2.3"})
    {
        EXPECT_EQ(text, Version::Parse(text).ToString().Utf8());
    }
    EXPECT_TRUE(Version() == Version(0, 0) && Version::Parse("7") == Version(7, 0));
    ExpectEachThrows<ArgumentOutOfRangeException>({[] { Version(-1, 0); }, [] { Version(0, -1); },
                                                   [] { Version(0, 0, -1); }, [] { Version(0, 0, 0, -1); },
                                                   [] { Version::Parse("1.-2"); }});
    ExpectEachThrows<FormatException>({[] { Version::Parse("1..2"); }, [] { Version::Parse("1.2.3.4.5"); }});
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
            EXPECT_TRUE((left == right) == (order == 0) && left.Equals(right) == (order == 0));
        }
    }
    const Up<Object> copy(Version(1, 2, 3, 4).Clone());
    EXPECT_TRUE(copy->Equals(Version(1, 2, 3, 4)));
    EXPECT_EQ(((1 * 31 + 2) * 31 + 3) * 31 + 4, Version(1, 2, 3, 4).GetHashCode());
}

TEST(OperatingSystemTests, NameVersionAndServicePackPrint)
{
    using Row = std::tuple<const char*, PlatformID, Version>;
    for (const auto& [text, platform, version] :
         {Row{"Microsoft Windows NT 5.1.2600", PlatformID::Win32NT, Version(5, 1, 2600)},
          Row{"Unix 6.18.5 Service Pack 8", PlatformID::Unix, Version(6, 18, 5)},
          Row{"Android 13.0.5", PlatformID::Android, Version(13, 0, 5)}})
    {
        EXPECT_EQ(text, OperatingSystem(platform, version).ToString().Utf8());
    }
    ExpectEachThrows<ArgumentException>({[] { OperatingSystem(static_cast<PlatformID>(9), Version()); },
                                         [] { OperatingSystem(static_cast<PlatformID>(-2), Version()); }});
    EXPECT_GT(Environment::OSVersion().Version().Major(), 0);
}
