#include <Tests/Support/CoreTest.h>
#include <Tests/Support/TemporaryFolder.h>

#include <Core/System/IO/Directory.h>
#include <Core/System/IO/DirectoryInfo.h>
#include <Core/System/IO/File.h>
#include <Core/System/IO/FileInfo.h>
#include <Core/System/Security/SecurityException.h>

using namespace Tesmo::System::IO;

using FileSystemTests = FolderTest;

namespace
{
/// The paths that GetFiles gives, below the folder and with slashes.
std::set<std::string> FilesIn(const TemporaryFolder& folder, const String& pattern)
{
    std::set<std::string> found;
    for (const FileInfo& file : DirectoryInfo(folder.Path()).GetFiles(pattern))
    {
        const std::filesystem::path path(file.FullName().Utf8());
        found.insert(path.lexically_relative(folder.Path().Utf8()).generic_string());
    }
    return found;
}
} // namespace

TEST_F(FileSystemTests, FilesAndFoldersAreToldApart)
{
    folder.Write("f.txt", "x");
    using Row = std::tuple<String, bool, bool>;
    for (const auto& [path, isFile, isFolder] :
         {Row{folder.Path("f.txt"), true, false}, Row{folder.Path(), false, true},
          Row{folder.Path() + String(Path::DirectorySeparator(), 1), false, true},
          Row{folder.Path("g.txt"), false, false}})
    {
        EXPECT_EQ(isFile, File::Exists(path));
        EXPECT_EQ(isFolder, Directory::Exists(path));
    }
    EXPECT_FALSE(File::Exists("") || File::Exists("a|b")); // no path names no file
    EXPECT_TRUE(DirectoryInfo(folder.Path()).Attributes().Has(FileAttributes::Directory));
    EXPECT_FALSE(FileInfo(folder.Path("f.txt")).Attributes().Has(FileAttributes::Directory));
    EXPECT_THROW(FileInfo(folder.Path("g.txt")).Attributes(), FileNotFoundException);
}

TEST_F(FileSystemTests, InfosOfNothingFillAnArray)
{
    EXPECT_FALSE(Array<FileInfo>(1)[0].Exists() || Array<DirectoryInfo>(1)[0].Exists());
    EXPECT_THROW(Array<FileInfo>(1)[0].Delete(), Security::SecurityException);
    EXPECT_EQ(0, Array<DirectoryInfo>(1)[0].GetFiles("*").Length());
}

TEST_F(FileSystemTests, MoveNeedsASourceAnExtensionAndAFreeName)
{
    folder.Write("a.txt", "a");
    folder.Write("b.txt", "b");
    const String source = folder.Path("a.txt");
    EXPECT_THROW(File::Move(folder.Path("none.txt"), folder.Path("c.txt")), FileNotFoundException);
    EXPECT_THROW(File::Move(source, folder.Path("c")), ArgumentException);
    ExpectEachThrows<IOException>(
        {[&] { File::Move(source, folder.Path("b.txt")); }, [&] { File::Move(source, folder.Path("none/c.txt")); }});
    EXPECT_EQ("ab", folder.Read("a.txt") + folder.Read("b.txt"));

    FileInfo file(source);
    file.MoveTo(folder.Path("c.bak"));
    EXPECT_EQ(folder.Path("c.bak"), file.FullName());
    EXPECT_EQ("a", folder.Read("c.bak"));
    EXPECT_FALSE(folder.Has("a.txt"));
}

TEST_F(FileSystemTests, CopyAndDelete)
{
    folder.Write("a.txt", "a");
    folder.Write("b.txt", "b");
    const FileInfo source(folder.Path("a.txt"));
    EXPECT_THROW(source.CopyTo(folder.Path("b.txt"), false), IOException);
    EXPECT_EQ("b", folder.Read("b.txt"));
    EXPECT_EQ("b.txt", source.CopyTo(folder.Path("b.txt"), true).Name().Utf8());
    EXPECT_EQ("a", folder.Read("b.txt"));

    File::Delete(folder.Path("a.txt"));
    EXPECT_FALSE(folder.Has("a.txt"));
    EXPECT_THROW(File::Delete(folder.Path("a.txt")), Security::SecurityException);
    EXPECT_THROW(source.CopyTo(folder.Path("c.txt"), true), FileNotFoundException);
}

TEST_F(FileSystemTests, GetFilesMatchesNamesOfFilesOnly)
{
    folder.Write("a.dll", "");
    folder.Write("b.dll", "");
    folder.Write("c.dll.txt", "");
    folder.Write("[a].x", "");
    folder.MakeFolder("sub.dll");
    folder.Write("sub.dll/d.txt", "");
    const String sub = Path::Combine("sub.dll", "*.txt");
    EXPECT_EQ((std::set<std::string>{"a.dll", "b.dll"}), FilesIn(folder, "*.dll"));
    EXPECT_EQ((std::set<std::string>{"a.dll"}), FilesIn(folder, "a.?ll"));
    EXPECT_EQ((std::set<std::string>{"[a].x"}), FilesIn(folder, "[a].x")); // brackets are no pattern
    EXPECT_EQ((std::set<std::string>{"sub.dll/d.txt"}), FilesIn(folder, sub));
    EXPECT_EQ((std::set<std::string>{"sub.dll/d.txt"}), FilesIn(folder, Path::Combine(folder.Path(), sub)));
    EXPECT_EQ(0, DirectoryInfo(folder.Path("none")).GetFiles("*").Length());
}

TEST_F(FileSystemTests, FoldersAreMadeWithTheirParents)
{
    const String deep = Path::Combine(Path::Combine(folder.Path("a"), "b"), "c");
    const String ended = deep + String(Path::DirectorySeparator(), 1);
    EXPECT_THROW(DirectoryInfo(deep).Create(), IOException);
    Directory::CreateDirectory(deep);
    EXPECT_TRUE(Directory::Exists(deep));
    EXPECT_NO_THROW(Directory::CreateDirectory(ended));
    EXPECT_TRUE(DirectoryInfo(deep).Name() == String("c") && DirectoryInfo(ended).Name() == String("c"));

    EXPECT_THROW(DirectoryInfo(folder.Path("a")).Delete(), IOException); // not empty
    DirectoryInfo(deep).Delete();
    EXPECT_FALSE(Directory::Exists(deep));

    folder.Write("file", "");
    EXPECT_THROW(Directory::CreateDirectory(Path::Combine(folder.Path("file"), "x")), IOException);
}
