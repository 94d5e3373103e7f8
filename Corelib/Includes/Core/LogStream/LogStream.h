#pragma once

#include <Core/LogStream/ILogStream.h>
#include <Core/System/IO/Stream.h>
#include <Core/System/IO/StreamWriter.h>
#include <Core/System/Object.h>
#include <Core/System/Sp.h>

#include <cstdint>

namespace Tesmo::System::IO
{
class FileStream;
}

namespace Tesmo::System::LogStreams
{
/// A log in a file, or in another stream: UTF-8, lines end in CR LF. A header stands at its start, and again where a
/// later run goes on in the same file. All threads may write at the same time: a row is always whole.
///
/// Each row has reached the operating system when its call returns, by one system call for the text and one for the line
/// end. Nothing is caught: a failure of the file reaches the code that logged (IOException, for instance when the disk
/// is full; ObjectClosedException when the stream was closed).
///
/// With BackupCount above 0 a file that has grown over MaxFileSize is moved to ".bak", and a new one begins; older
/// backups move on to ".bak1", ".bak2" and so on. Should that fail while the old file is still open, the row's caller
/// gets an ArgumentException; should it fail later, the log is dead and rows give ObjectClosedException.
class LogStream : public Object, public ILogStream
{
public:
    using ILogStream::Write;
    using ILogStream::WriteBlank;

    /// Opens a file, or creates it, and goes on at its end. Its folder must exist.
    /// @throws ArgumentNullException  an argument is null
    /// @throws ArgumentException, IO::IOException and others  as FileStream gives them
    explicit LogStream(const String& path, LogStreamLevel level = LogStreamLevel::Standard);
    /// @param author, company, product  lines of the header; empty for none
    LogStream(const String& path, LogStreamLevel level, const String& author, const String& company,
              const String& product);
    /// @param source  of the reference time; not owned, it must outlive this object
    LogStream(const ILogStreamRefTime* source, const String& path, LogStreamLevel level = LogStreamLevel::Standard);
    LogStream(const ILogStreamRefTime* source, const String& path, LogStreamLevel level, const String& author,
              const String& company, const String& product);

    /// Writes to a stream, which is closed at the end.
    /// @throws ArgumentNullException  an argument is null
    /// @throws ArgumentException      the stream cannot be written
    explicit LogStream(const Sp<IO::Stream>& stream, LogStreamLevel level = LogStreamLevel::Standard);
    LogStream(const Sp<IO::Stream>& stream, LogStreamLevel level, const String& author, const String& company,
              const String& product);
    LogStream(const ILogStreamRefTime* source, const Sp<IO::Stream>& stream,
              LogStreamLevel level = LogStreamLevel::Standard);
    LogStream(const ILogStreamRefTime* source, const Sp<IO::Stream>& stream, LogStreamLevel level, const String& author,
              const String& company, const String& product);

    /// Closes the file, without closing rows.
    ~LogStream() override = default;

    /// Writes a row at Standard about the change, if the old level lets it pass.
    void SetLevel(LogStreamLevel newLevel) override;
    void Write(const LogStreamChannel& channel, LogStreamLevel level, int errorCode, const String& message) override;
    void WriteBlank(const LogStreamChannel& channel, LogStreamLevel level) override;
    void WriteSeparator(const LogStreamChannel& channel, LogStreamLevel level) override;
    /// The date, the reference time, the channel, and the text on lines of its own; it does not count for the size.
    void WriteDump(const LogStreamChannel& channel, LogStreamLevel level, const String& text) override;
    /// Writes a last row and the closing line, and closes the file or stream. No effect on a log that has ended.
    void Close() override;

    /// Files that are kept beside the current one; 0, as at first, turns splitting off.
    int BackupCount() const;
    void BackupCount(int value);
    /// Characters in rows, and bytes that the file had when it was opened, above which it is split; 5242880 at first.
    int MaxFileSize() const;
    void MaxFileSize(int value);
    /// Width of banners and blank rows in characters, 256 at first.
    /// @throws ArgumentOutOfRangeException  value is below 2
    int LineWidth() const;
    void LineWidth(int value);

private:
    /// A file by its path, or a stream whose path is empty.
    LogStream(const ILogStreamRefTime* source, const Sp<IO::StreamWriter>& sink, const String& path,
              LogStreamLevel level, const String& author, const String& company, const String& product);

    /// These expect the lock to be held.
    bool IsEnded() const;               ///< closed, or dead after a failed split
    const IO::FileStream* File() const; ///< a null pointer where the log goes to another stream
    void WriteRow(const String& row);
    String Filled(const String& text, char32 filler, char32 end) const;
    void WriteHeader();
    void SplitIfTooLarge();
    void Split();
    String BackupName(int number) const;

    void WriteOwnRow(const String& message);

    Sp<IO::StreamWriter> writer;
    int backupCount = 0;
    std::int64_t currentSize = 0; ///< characters in rows so far, and the bytes that the file had at first
    String fileName;              ///< as it was given; empty for a stream
    String author;
    String company;
    String product;
    Object lockObject; ///< guards all of the above and the widths
};
} // namespace Tesmo::System::LogStreams
