#include <Tests/Support/CoreTest.h>
#include <Tests/Support/TemporaryFolder.h>

#include <Core/System/Diagnostics/CallStack.h>
#include <Core/System/IO/DirectoryInfo.h>
#include <Core/System/IO/FileStream.h>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Tesmo::System::IO;

using FilesLinuxTests = FolderTest;

namespace
{
std::ptrdiff_t OpenDescriptors()
{
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

rlim_t MappedBytes()
{
    rlim_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    return pages * static_cast<rlim_t>(getpagesize());
}
} // namespace

TEST_F(FilesLinuxTests, AnOpenFileIsNotHandedToChildProcesses)
{
    const FileStream stream(folder.Path("held.log"), FileMode::Create, FileAccess::Write, FileShare::None);
    EXPECT_EQ(0, std::system("ls -l /proc/$$/fd >/dev/null")); // the listing itself works
    EXPECT_NE(0, std::system("ls -l /proc/$$/fd | grep -q held.log"));
}

TEST_F(FilesLinuxTests, AFailedReadIsNoEndOfTheFile)
{
    FileStream memory("/proc/self/mem", FileMode::Open, FileAccess::Read, FileShare::None); // nothing lies at address 0
    EXPECT_THROW(memory.ReadByte(), IOException);
}

TEST_F(FilesLinuxTests, DeadLinksAndFilesWhosePathsAreTooLongAreLeftOut)
{
    std::filesystem::path deep(folder.Path().Utf8());
    while (deep.native().size() < 1900)
    {
        deep /= std::string(100, 'd');
    }
    std::filesystem::create_directories(deep / "sub");
    for (const std::string& name : {std::string("real"), std::string("no|path.so"), std::string(250, 'n') + ".so"})
    {
        std::ofstream(deep / name);
    }
    std::filesystem::create_symlink(deep / "real", deep / "file.so");
    std::filesystem::create_symlink(deep / "sub", deep / "folder.so");
    std::filesystem::create_symlink(deep / "none", deep / "dead.so");
    const Array<FileInfo> files = DirectoryInfo(String(deep.native())).GetFiles("*.so");
    ASSERT_EQ(1, files.Length());
    EXPECT_EQ("file.so", files[0].Name().Utf8());
}

TEST_F(FilesLinuxTests, CloseGivesTheDescriptorBackOfAPipeToo)
{
    const String path = folder.Path("pipe");
    ASSERT_EQ(0, mkfifo(path.Utf8().c_str(), 0600));
    const std::ptrdiff_t before = OpenDescriptors();
    FileStream stream(path, FileMode::Open, FileAccess::ReadWrite, FileShare::None);
    Array<unsigned char> two(2);
    for (int round = 0; round < 2; round++)
    {
        stream.WriteByte('x');
        stream.WriteByte('y');
        EXPECT_EQ('x', stream.ReadByte());
        std::ofstream(path.Utf8()) << 'z';
        EXPECT_THROW(stream.Length(), IOException);
        EXPECT_EQ(2, stream.Read(two, 0, 2)); // the failure has cost nothing, and more is not waited for
        EXPECT_TRUE(two[0] == 'y' && two[1] == 'z');
        EXPECT_THROW(FileStream(path, FileMode::Append, FileAccess::Write, FileShare::None), IOException);
        EXPECT_EQ(before + 1, OpenDescriptors());
        stream.Close();
        EXPECT_EQ(before, OpenDescriptors());
        stream.Reopen();
    }
    stream.Close();
    FileStream(folder.Path("file"), FileMode::Create, FileAccess::Write, FileShare::None);
    EXPECT_EQ(before, OpenDescriptors());

    Up<FileStream> closed(new FileStream(folder.Path("file"), FileMode::Open, FileAccess::Read, FileShare::None));
    closed->Close();
    FileStream other(folder.Path("file"), FileMode::Open, FileAccess::Write, FileShare::None);
    closed = Up<FileStream>();
    EXPECT_NO_THROW(other.WriteByte('x')); // the descriptor was given back once
}

TEST_F(FilesLinuxTests, AStackHasItsEntriesOnceThereAreDescriptorsAndMemoryAgain)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe"); // a process that has not read its symbols yet
    const auto lookUpWithout = [](auto resource, rlim_t limit)
    {
        using Diagnostics::CallStack;
        rlimit usual{};
        getrlimit(resource, &usual);
        const rlimit less{limit, usual.rlim_max};
        const CallStack early(0);
        setrlimit(resource, &less);
        const bool isMissing = early.Entries().empty() && CallStack(0).Entries().empty();
        setrlimit(resource, &usual);
        std::exit(isMissing && !early.Entries().empty() && !CallStack(0).Entries().empty() ? 0 : 1);
    };
    EXPECT_EXIT(lookUpWithout(RLIMIT_NOFILE, 0), testing::ExitedWithCode(0), "");
    const rlim_t room = 1 << 20; // bytes: enough for the program itself
    EXPECT_EXIT(lookUpWithout(RLIMIT_AS, MappedBytes() + room), testing::ExitedWithCode(0), "");
}
