#include <Tests/Support/CoreTest.h>
#include <Tests/Support/RecordingStream.h>
#include <Tests/Support/TemporaryFolder.h>

#include <Core/System/IO/FileStream.h>
#include <Core/System/IO/StreamReader.h>
#include <Core/System/IO/StreamWriter.h>

using namespace Tesmo::System::IO;

using TextStreamTests = FolderTest;

TEST_F(TextStreamTests, ReadToEndDropsEveryCarriageReturnAndNothingElse)
{
    using Row = std::tuple<std::string, std::string>;
    for (const auto& [bytes, text] : {Row{"", ""}, Row{"a\r\nb\r\n", "a\nb\n"}, Row{"a\rb\n\r", "ab\n"},
                                      Row{"\xEF\xBB\xBF{}", "\xEF\xBB\xBF{}"}, // a byte order mark is a character
                                      Row{"\xE2\x82\xAC\xC3\xA9", "\xE2\x82\xAC\xC3\xA9"}, Row{"a\xE2\x82", "a"},
                                      Row{std::string(5000, 'x') + "\xC3\xA9", std::string(5000, 'x') + "\xC3\xA9"}})
    {
        folder.Write("f", bytes);
        EXPECT_EQ(text, StreamReader(folder.Path("f")).ReadToEnd().Utf8());
    }
}

TEST_F(TextStreamTests, LinesAndBytesAreReadOneAfterAnother)
{
    folder.Write("f", "one\r\n\ntwo\xC3\xA9");
    StreamReader reader(folder.Path("f"));
    EXPECT_TRUE(reader.Peek() == 'o' && reader.Read() == 'o');
    EXPECT_EQ("ne", reader.ReadLine().Utf8());
    EXPECT_TRUE(reader.ReadLine().IsEmpty() && !reader.EndOfStream());
    EXPECT_EQ("two\xC3\xA9", reader.ReadLine().Utf8());
    EXPECT_TRUE(reader.EndOfStream() && reader.ReadLine().IsEmpty() && reader.Read() == -1 && reader.Peek() == -1);
    EXPECT_FALSE(reader.BaseStream()->IsClosed());
    reader.Close();
    EXPECT_TRUE(reader.BaseStream()->IsClosed());
    EXPECT_THROW(reader.ReadLine(), ObjectClosedException);
    EXPECT_TRUE(TextReader::Null().Read() == -1 && TextReader::Null().Peek() == -1);
    EXPECT_TRUE(TextReader::Null().ReadLine().IsEmpty() && TextReader::Null().ReadToEnd().IsEmpty());
    EXPECT_NO_THROW(TextWriter::Null().WriteLine("swallowed"));
}

TEST_F(TextStreamTests, ReadersAndWritersRefuseNullAndStreamsOfTheOtherKind)
{
    folder.Write("f", "x");
    const Sp<Stream> readable(new FileStream(folder.Path("f"), FileMode::Open, FileAccess::Read, FileShare::None));
    ExpectEachThrows<ArgumentException>(
        {[&] { StreamWriter{readable}; }, [] { StreamReader{Sp<Stream>(new RecordingStream)}; }});
    ExpectEachThrows<ArgumentNullException>({[] { StreamReader{Sp<Stream>()}; }, [] { StreamWriter{Sp<Stream>()}; },
                                             [] { StreamReader{static_cast<const String&>(null)}; },
                                             [] { TextReader::Synchronized(Sp<TextReader>()); },
                                             [] { TextWriter::Synchronized(null); }});
}

TEST_F(TextStreamTests, AWriterAppendsOrEmptiesAndMakesEveryTextOneWrite)
{
    StreamWriter(folder.Path("f"), true).Write("a\xC3\xA9"); // missing: created; no byte order mark
    StreamWriter(folder.Path("f"), true).WriteLine("z");
    EXPECT_EQ("a\xC3\xA9z\r\n", folder.Read("f"));
    StreamWriter(folder.Path("f")).WriteLine();
    EXPECT_EQ("\r\n", folder.Read("f"));

    Sp<RecordingStream> stream(new RecordingStream);
    {
        StreamWriter writer{Sp<Stream>(stream)};
        writer.WriteLine("text");
        EXPECT_TRUE(stream->writes == 1 && stream->flushes == 0);
        EXPECT_FALSE(writer.AutoFlush());
        writer.AutoFlush(true);
        EXPECT_TRUE(writer.AutoFlush());
        writer.Write(String());
        EXPECT_TRUE(stream->writes == 1 && stream->flushes == 1);
        ExpectEachThrows<ArgumentNullException>({[&] { writer.Write(null); }, [&] { writer.WriteLine(null); }});
    }
    EXPECT_TRUE(stream->IsClosed() && stream->text == "text\r\n"); // by the end of the writer
}

TEST_F(TextStreamTests, SynchronizedLinesOfTwoThreadsStayWhole)
{
    constexpr int linesOfEach = 500;
    const Sp<TextWriter> writer = TextWriter::Synchronized(Sp<TextWriter>(new StreamWriter(folder.Path("f"))));
    const auto write = [&writer](const char* line)
    {
        for (int i = 0; i < linesOfEach; ++i)
        {
            writer->WriteLine(line);
        }
    };
    std::thread other(write, "bbb");
    write("aaa");
    other.join();
    writer->Flush();
    writer->Close();
    const Sp<TextReader> reader = TextReader::Synchronized(Sp<TextReader>(new StreamReader(folder.Path("f"))));
    const int first = reader->Peek();
    EXPECT_EQ(first, reader->Read());
    const String line = reader->ReadLine();
    EXPECT_EQ(static_cast<int>(line[0].value), first);
    const String text = String(line[0], 1) + line + "\n" + reader->ReadToEnd();
    EXPECT_EQ(2 * linesOfEach * 4, text.Length());
    EXPECT_EQ("", text.Replace("aaa\n", "").Replace("bbb\n", "").Utf8());
    reader->Close();
    EXPECT_THROW(reader->Read(), ObjectClosedException);
}
