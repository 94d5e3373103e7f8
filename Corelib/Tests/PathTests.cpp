#include <Tests/Support/CoreTest.h>

using namespace Tesmo::System::IO;

namespace
{
const bool hasDrives = Path::DirectorySeparator() == char32('\\');

/// The tables are written with slashes.
String Native(std::string path)
{
    std::replace(path.begin(), path.end(), '/', hasDrives ? '\\' : '/');
    return String(path);
}

const std::string root = hasDrives ? "C:/" : "/";
} // namespace

TEST(PathTests, SomeCharactersMakeAPathInvalid)
{
    for (const char* const valid : {"", "a", " !#$%&'()+,-.;=@[]^_`{}~", "*.dll", "\x7F\x80", "C:\\a/b"})
    {
        EXPECT_TRUE(Path::IsValid(valid)) << valid;
    }
    for (const char* const invalid : {"a\"", "<", "a>b", "|a", "\x01", "a\x1F", "a\tb", "line\n"})
    {
        EXPECT_FALSE(Path::IsValid(invalid)) << invalid;
        ExpectEachThrows<ArgumentException>({[&] { Path::Combine(invalid, "b"); }, [&] { Path::Combine("a", invalid); },
                                             [&] { Path::GetFullPath(invalid); },
                                             [&] { Path::IsPathRooted(invalid); }});
    }
    EXPECT_FALSE(Path::IsValid(null));
}

TEST(PathTests, APathIsCutBehindItsLastSeparatorAndAtItsLastDot)
{
    using Row = std::tuple<std::string, std::string, std::string, std::string>;
    for (const auto& [text, folders, name, extension] :
         {Row{"", "", "", ""}, Row{"b.txt", "", "b", ".txt"}, Row{"a/", "a/", "", ""},
          Row{root + "a/b.txt", root + "a/", "b", ".txt"}, Row{root + "a/b", root + "a/", "b", ""},
          Row{root, root, "", ""},
          Row{root + "Program Files (x86)/Common Files", root + "Program Files (x86)/", "Common Files", ""},
          Row{"a.b/c", "a.b/", "c", ""}, Row{"x.tar.gz", "", "x.tar", ".gz"}, Row{"a/.profile", "a/", "", ".profile"},
          Row{"a/name.", "a/", "name", "."}, Row{"\xC3\xA9/\xE2\x82\xAC.txt", "\xC3\xA9/", "\xE2\x82\xAC", ".txt"}})
    {
        SCOPED_TRACE(text);
        const String path = Native(text);
        EXPECT_EQ(Native(folders), Path::GetDirectoryName(path));
        ExpectTexts({TextRow{name + extension, Path::GetFileName(path)},
                     TextRow{name, Path::GetFileNameWithoutExtension(path)},
                     TextRow{extension, Path::GetExtension(path)}});
        EXPECT_EQ(!extension.empty(), Path::HasExtension(path));
        EXPECT_EQ(text.starts_with(root), Path::IsPathRooted(path));
    }
}

TEST(PathTests, CombinePutsOneSeparatorBetween)
{
    using Row = std::tuple<std::string, std::string, std::string>;
    for (const auto& [a, b, combined] :
         {Row{root + "a", "b", root + "a/b"}, Row{root + "a/", "b", root + "a/b"}, Row{"", "b", "b"}, Row{"a", "", "a"},
          Row{"", "", ""}, Row{"a/", "", "a/"}, Row{"a", root + "b", root + "b"}, Row{"a", "b/c.txt", "a/b/c.txt"},
          // What begins with a separator has a root on Linux only.
          Row{"a/", "/b", hasDrives ? "a/b" : "/b"}, Row{"a", "/b", hasDrives ? "a//b" : "/b"}})
    {
        EXPECT_EQ(Native(combined), Path::Combine(Native(a), Native(b))) << a << " and " << b;
    }
}

TEST(PathTests, AFullPathBeginsAtTheRootAndHasNoDots)
{
    const String here = Path::GetFullPath(".");
    EXPECT_TRUE(Path::IsPathRooted(here));
    EXPECT_EQ(Path::Combine(here, Native("a/b")), Path::GetFullPath(Native("x/../a/./b")));
    EXPECT_EQ(Native(root + "a"), Path::GetFullPath(Native(root + "a/b/..")));
    EXPECT_EQ(Native(root + "a/"), Path::GetFullPath(Native(root + "a/b/../")));
    EXPECT_EQ(Native(root), Path::GetFullPath(Native(root + "a/../..")));
    EXPECT_EQ(Path::Combine(here, "a"), Path::GetFullPath(String(std::string("a\0b", 3)))); // cut at a zero
    EXPECT_THROW(Path::GetFullPath(String(char32('a'), 2048)), ArgumentException);
    EXPECT_EQ(Native(root), Path::GetPathRoot(Native(root + "a/b")));
    ExpectTexts({TextRow{hasDrives ? "C:" : "", Path::GetPathRoot("C:a")},
                 TextRow{hasDrives ? "" : "/", Path::GetPathRoot(Native("/a"))}});
}
