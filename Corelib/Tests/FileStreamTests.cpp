#include <Tests/Support/CoreTest.h>
#include <Tests/Support/TemporaryFolder.h>

#include <Core/System/IO/FileStream.h>
#include <Core/System/IO/Path.h>

using namespace Tesmo;
using namespace Tesmo::System;
using namespace Tesmo::System::IO;

namespace
{
constexpr int R = FileAccess::Read;
constexpr int W = FileAccess::Write;
constexpr int RW = FileAccess::ReadWrite;

/// What the file holds after an 'X' was written where that is possible, or the failure.
std::string OutcomeOf(const TemporaryFolder& folder, FileMode mode, int access)
{
    try
    {
        FileStream stream(folder.Path("f.txt"), mode, access, FileShare::None);
        if (stream.CanWrite())
        {
            stream.WriteByte('X');
        }
        stream.Close();
        return folder.Read("f.txt");
    }
    catch (const SystemException& failure)
    {
        return failure.GetType().Name().Utf8();
    }
}
} // namespace

TEST(FileStreamTests, ModeAndAccessDecideWhatOpeningDoes)
{
    const char* const argument = "ArgumentException";
    const char* const missing = "FileNotFoundException";
    const char* const exists = "IOException";
    // The outcomes where there is no file, and where there is one that holds "abc".
    using Row = std::tuple<FileMode, int, const char*, const char*>;
    for (const auto& [mode, access, onNone, onAbc] :
         {Row{FileMode::CreateNew, R, argument, argument}, Row{FileMode::CreateNew, W, "X", exists},
          Row{FileMode::CreateNew, RW, "X", exists}, Row{FileMode::Create, R, argument, argument},
          Row{FileMode::Create, W, "X", "X"}, Row{FileMode::Create, RW, "X", "Xbc"},
          Row{FileMode::Open, R, missing, "abc"}, Row{FileMode::Open, W, missing, "Xbc"},
          Row{FileMode::Open, RW, missing, "Xbc"}, Row{FileMode::OpenOrCreate, R, "", "abc"},
          Row{FileMode::OpenOrCreate, W, "X", "Xbc"}, Row{FileMode::OpenOrCreate, RW, "X", "Xbc"},
          Row{FileMode::Truncate, R, missing, argument}, Row{FileMode::Truncate, W, missing, "X"},
          Row{FileMode::Truncate, RW, missing, "Xbc"}, Row{FileMode::Append, R, argument, argument},
          Row{FileMode::Append, W, "X", "abcX"}, Row{FileMode::Append, RW, argument, argument}})
    {
        SCOPED_TRACE(mode.ToString().Utf8() + " " + std::to_string(access));
        const TemporaryFolder folder;
        EXPECT_EQ(onNone, OutcomeOf(folder, mode, access));
        folder.Write("f.txt", "abc");
        EXPECT_EQ(onAbc, OutcomeOf(folder, mode, access));
    }
}

TEST(FileStreamTests, APathThatCannotBeOpenedNamesTheReason)
{
    const TemporaryFolder folder;
    folder.MakeFolder("sub");
    const auto create = [](const String& path) { FileStream(path, FileMode::Create, W, FileShare::None); };
    EXPECT_THROW(create(""), ArgumentException);
    EXPECT_THROW(create("a|b"), ArgumentException);
    EXPECT_THROW(create(Path::Combine(folder.Path("none"), "f.txt")), DirectoryNotFoundException);
    EXPECT_THROW(create(folder.Path("sub")), IOException);
    EXPECT_THROW(FileStream(folder.Path("sub"), FileMode::Open, R, FileShare::None), FileNotFoundException);
    EXPECT_THROW(FileStream(folder.Path("f"), FileMode(7), W, FileShare::None), ArgumentOutOfRangeException);
    EXPECT_THROW(FileStream(folder.Path("f"), FileMode::Create, 3, FileShare::None), ArgumentOutOfRangeException);
}

TEST(FileStreamTests, ShareNoneLocksNothingOut)
{
    const TemporaryFolder folder;
    FileStream first(folder.Path("f"), FileMode::Create, W, FileShare::None);
    first.WriteByte('a');
    FileStream second(folder.Path("f"), FileMode::Append, W, FileShare::None);
    second.WriteByte('b');
    FileStream reader(folder.Path("f"), FileMode::Open, R, FileShare::None);
    EXPECT_EQ('a', reader.ReadByte());
    EXPECT_EQ('b', reader.ReadByte());
    EXPECT_EQ(-1, reader.ReadByte());
    EXPECT_EQ(1, first.GetPosition());
    EXPECT_EQ(2, second.GetPosition()); // stands at the end
}

TEST(FileStreamTests, ReadingAheadDoesNotShow)
{
    std::string text("0");
    for (int i = 1; i < 9000; ++i)
    {
        text += static_cast<char>('a' + i % 23);
    }
    const TemporaryFolder folder;
    folder.Write("f", text);
    FileStream stream(folder.Path("f"), FileMode::Open, RW, FileShare::None);
    EXPECT_EQ(static_cast<std::int64_t>(text.size()), stream.Length());
    EXPECT_EQ('0', stream.ReadByte());
    stream.WriteByte('!'); // where the reader stands, not where the buffer ends
    EXPECT_EQ(text[2], stream.ReadByte());
    EXPECT_EQ(3, stream.GetPosition());
    stream.SetPosition(2);
    Array<unsigned char> buffer(static_cast<int>(text.size()) + 10);
    EXPECT_EQ(static_cast<int>(text.size()) - 2, stream.Read(buffer, 5, static_cast<int>(text.size())));
    EXPECT_EQ(text.substr(2), std::string(buffer.begin() + 5, buffer.begin() + 5 + text.size() - 2));
    EXPECT_EQ(0, stream.Read(buffer, 0, 1));

    EXPECT_EQ(1, stream.Seek(1, SeekOrigin::Begin));
    EXPECT_EQ('!', stream.ReadByte());
    EXPECT_EQ(5, stream.Seek(3, SeekOrigin::Current));
    EXPECT_EQ(static_cast<std::int64_t>(text.size()) - 1, stream.Seek(-1, SeekOrigin::End));
    EXPECT_THROW(stream.Seek(-1, SeekOrigin::Begin), IOException);
    EXPECT_THROW(stream.Seek(0, SeekOrigin(3)), ArgumentOutOfRangeException);
    EXPECT_THROW(stream.SetPosition(-1), ArgumentOutOfRangeException);
    EXPECT_THROW(stream.Read(buffer, 11, static_cast<int>(text.size())), ArgumentOutOfRangeException);
    EXPECT_THROW(stream.Write(buffer, -1, 1), ArgumentOutOfRangeException);
}

TEST(FileStreamTests, AStreamRefusesWhatItIsNotOpenFor)
{
    const TemporaryFolder folder;
    FileStream writer(folder.Path("f"), FileMode::Create, W, FileShare::None);
    FileStream reader(folder.Path("f"), FileMode::Open, R, FileShare::None);
    Array<unsigned char> none(0);
    EXPECT_THROW(writer.ReadByte(), NotSupportedException);
    EXPECT_THROW(writer.Read(none, 0, 0), NotSupportedException);
    EXPECT_THROW(reader.WriteByte(1), NotSupportedException);
    EXPECT_THROW(writer.SetLength(1), NotSupportedException);
    EXPECT_THROW(writer.SetLength(-1), ArgumentOutOfRangeException);

    writer.Close();
    writer.Close(); // no effect
    reader.Close();
    EXPECT_FALSE(writer.CanWrite());
    EXPECT_THROW(writer.Write(none, 0, 0), ObjectClosedException);
    EXPECT_THROW(reader.Read(none, 0, 0), ObjectClosedException);
    EXPECT_THROW(writer.Flush(), ObjectClosedException);
    EXPECT_THROW(writer.SetLength(-1), ObjectClosedException);
    EXPECT_THROW(reader.ReadByte(), ObjectClosedException);
    EXPECT_THROW(reader.GetPosition(), ObjectClosedException);
}

TEST(FileStreamTests, ReopenGoesOnWhereTheStreamStood)
{
    const TemporaryFolder folder;
    FileStream stream(folder.Path("f"), FileMode::Create, W, FileShare::None);
    for (const unsigned char byte : {'a', 'b', 'c', 'd', 'e'})
    {
        stream.WriteByte(byte);
    }
    stream.SetPosition(2);
    stream.Close();
    stream.Reopen();
    stream.WriteByte('X');
    stream.Reopen(); // an open one too
    stream.WriteByte('Y');
    stream.Close();
    EXPECT_EQ("abXYe", folder.Read("f"));
    std::filesystem::remove(stream.Name().Utf8());
    EXPECT_THROW(stream.Reopen(), FileNotFoundException);
}
