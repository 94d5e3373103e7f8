#include <Tests/Support/TemporaryFolder.h>

#include <Core/System/IO/DirectoryInfo.h>
#include <Core/System/IO/FileStream.h>

#include <gtest/gtest.h>

#include <cstdlib>

using namespace Tesmo::System;
using namespace Tesmo::System::IO;

TEST(FilesLinuxTests, AnOpenFileIsNotHandedToChildProcesses)
{
    const TemporaryFolder folder;
    const FileStream stream(folder.Path("held.log"), FileMode::Create, FileAccess::Write, FileShare::None);
    EXPECT_EQ(0, std::system("ls -l /proc/$$/fd >/dev/null")); // the listing itself works
    EXPECT_NE(0, std::system("ls -l /proc/$$/fd | grep -q held.log"));
}

TEST(FilesLinuxTests, FilesAreFoundThroughLinksAndDeadLinksAreNot)
{
    const TemporaryFolder folder;
    folder.Write("real", "x");
    folder.MakeFolder("sub");
    const std::filesystem::path base(folder.Path().Utf8());
    std::filesystem::create_symlink(base / "real", base / "file.so");
    std::filesystem::create_symlink(base / "sub", base / "folder.so");
    std::filesystem::create_symlink(base / "none", base / "dead.so");
    folder.Write("no|path.so", "");

    const Array<FileInfo> files = DirectoryInfo(folder.Path()).GetFiles("*.so");
    ASSERT_EQ(1, files.Length());
    EXPECT_EQ("file.so", files[0].Name().Utf8());
}
