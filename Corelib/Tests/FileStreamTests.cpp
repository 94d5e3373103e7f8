#include <Tests/Support/CoreTest.h>
#include <Tests/Support/TemporaryFolder.h>

#include <Core/System/IO/FileStream.h>

using namespace Tesmo::System::IO;

using FileStreamTests = FolderTest;

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

TEST_F(FileStreamTests, ModeAndAccessDecideWhatOpeningDoes)
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
        std::filesystem::remove(folder.Path("f.txt").Utf8());
        EXPECT_EQ(onNone, OutcomeOf(folder, mode, access));
        folder.Write("f.txt", "abc");
        EXPECT_EQ(onAbc, OutcomeOf(folder, mode, access));
    }
}

TEST_F(FileStreamTests, APathThatCannotBeOpenedNamesTheReason)
{
    folder.MakeFolder("sub");
    const auto create = [](const String& path) { FileStream(path, FileMode::Create, W, FileShare::None); };
    const String path = folder.Path("f");
    ExpectEachThrows<ArgumentException>({[&] { create(""); }, [&] { create("a|b"); }});
    EXPECT_THROW(create(folder.Path("none/f")), DirectoryNotFoundException);
    EXPECT_THROW(create(folder.Path("sub")), IOException);
    EXPECT_THROW(FileStream(folder.Path("sub"), FileMode::Open, R, FileShare::None), FileNotFoundException);
    ExpectEachThrows<ArgumentOutOfRangeException>({[&] { FileStream(path, FileMode(7), W, FileShare::None); },
                                                   [&] { FileStream(path, FileMode::Create, 3, FileShare::None); }});
}

TEST_F(FileStreamTests, ShareNoneLocksNothingOut)
{
    FileStream first(folder.Path("f"), FileMode::Create, W, FileShare::None);
    first.WriteByte('a');
    FileStream second(folder.Path("f"), FileMode::Append, W, FileShare::None);
    second.WriteByte('b');
    FileStream reader(folder.Path("f"), FileMode::Open, R, FileShare::None);
    EXPECT_TRUE(reader.ReadByte() == 'a' && reader.ReadByte() == 'b' && reader.ReadByte() == -1);
    EXPECT_TRUE(first.GetPosition() == 1 && second.GetPosition() == 2); // the second stands at the end
}

TEST_F(FileStreamTests, ReadingAheadDoesNotShow)
{
    std::string text("0");
    while (text.size() < 9000)
    {
        text += static_cast<char>('a' + text.size() % 23);
    }
    const int size = static_cast<int>(text.size());
    folder.Write("f", text);
    FileStream stream(folder.Path("f"), FileMode::Open, RW, FileShare::None);
    EXPECT_TRUE(stream.Length() == size && stream.ReadByte() == '0');
    stream.WriteByte('!'); // where the reader stands, not where the buffer ends
    EXPECT_TRUE(stream.ReadByte() == text[2] && stream.GetPosition() == 3);
    stream.SetPosition(2);
    Array<unsigned char> buffer(size + 10);
    EXPECT_EQ(size - 2, stream.Read(buffer, 5, size));
    EXPECT_EQ(text.substr(2), std::string(buffer.begin() + 5, buffer.begin() + 5 + size - 2));
    EXPECT_EQ(0, stream.Read(buffer, 0, 1));

    EXPECT_TRUE(stream.Seek(1, SeekOrigin::Begin) == 1 && stream.ReadByte() == '!');
    EXPECT_TRUE(stream.Seek(3, SeekOrigin::Current) == 5 && stream.Seek(-1, SeekOrigin::End) == size - 1);
    EXPECT_THROW(stream.Seek(-1, SeekOrigin::Begin), IOException);
    ExpectEachThrows<ArgumentOutOfRangeException>(
        {[&] { stream.Seek(0, SeekOrigin(3)); }, [&] { stream.SetPosition(-1); },
         [&] { stream.Read(buffer, 11, size); }, [&] { stream.Write(buffer, -1, 1); }});
}

TEST_F(FileStreamTests, AStreamRefusesWhatItIsNotOpenFor)
{
    FileStream writer(folder.Path("f"), FileMode::Create, W, FileShare::None);
    FileStream reader(folder.Path("f"), FileMode::Open, R, FileShare::None);
    Array<unsigned char> none(0);
    ExpectEachThrows<NotSupportedException>({[&] { writer.ReadByte(); }, [&] { writer.Read(none, 0, 0); },
                                             [&] { reader.WriteByte(1); }, [&] { writer.SetLength(0); }});
    EXPECT_THROW(writer.SetLength(-1), ArgumentOutOfRangeException);
    writer.Close();
    writer.Close(); // no effect
    reader.Close();
    EXPECT_FALSE(writer.CanWrite());
    ExpectEachThrows<ObjectClosedException>({[&] { writer.Write(none, 0, 0); }, [&] { reader.Read(none, 0, 0); },
                                             [&] { writer.Flush(); }, [&] { writer.SetLength(-1); },
                                             [&] { reader.ReadByte(); }, [&] { reader.GetPosition(); }});
}

TEST_F(FileStreamTests, ReopenGoesOnWhereTheStreamStood)
{
    FileStream stream(folder.Path("f"), FileMode::Create, RW, FileShare::None);
    stream.Write(Array<unsigned char>('a', 'b', 'c', 'd', 'e'), 0, 5);
    stream.SetPosition(1);
    EXPECT_EQ('b', stream.ReadByte());
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
