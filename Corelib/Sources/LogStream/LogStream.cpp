#include <Core/LogStream/LogStream.h>

#include <Core/LogStream/LogStreamRefTime.h>
#include <Core/System/ArgumentNullException.h>
#include <Core/System/ArgumentOutOfRangeException.h>
#include <Core/System/Checks.h>
#include <Core/System/DateTime.h>
#include <Core/System/IO/File.h>
#include <Core/System/IO/FileStream.h>
#include <Core/System/IO/Path.h>
#include <Core/System/NumericalFormat.h>
#include <Core/System/Threading/Lock.h>
#include <Core/System/ThrowSite.h>

#include <string>
#include <utility>

namespace Tesmo::System::LogStreams
{
namespace
{
using IO::FileStream;
using IO::Path;
using IO::StreamWriter;
using Threading::Lock;

constexpr const char* ColumnsLine =
    "|Date                   |RefTime           |Channel                                 "
    "|T|Error      |Message";
constexpr const char* ColumnsRule =
    "|-----------------------|------------------|----------------------------------------"
    "|-|-----------|-------";
constexpr std::size_t FixedRowSize = 104; // bytes of a usual row without its message

/// "14/11/2026 12:43:07.123.000": the milliseconds are printed with three decimals, as required.
void AppendDate(std::string& text)
{
    const DateTime now = DateTime::Now();
    text += now.ToString().Utf8();
    text += '.';
    NumericalFormat::Append(text, std::int64_t{now.Millisecond()}, 32, "n3");
}

void AppendRefTime(std::string& text, const ILogStreamRefTime& source)
{
    text += "0x";
    NumericalFormat::Append(text, source.RefTime(), 64, "X16");
}

void AppendChannel(std::string& text, const LogStreamChannel& channel)
{
    const String name = channel.ToString();
    text += name.Utf8();
    text.append(static_cast<std::size_t>(LogStreamChannel::MaxNameLength - name.Length()), ' ');
}

void AppendErrorCode(std::string& text, int errorCode)
{
    if (errorCode == 0)
    {
        text.append(11, ' ');
        return;
    }
    text += "$0x";
    NumericalFormat::Append(text, std::int64_t{errorCode}, 32, "X8");
}

/// The writer of a file or stream. It is made after all checks: a refused log opens no file and takes no stream.
template <class... Sink>
Sp<StreamWriter> MakeWriter(const ILogStreamRefTime* source, const String& author, const String& company,
                            const String& product, const Sink&... sink)
{
    NotNull(source);
    NotNull(author);
    NotNull(company);
    NotNull(product);
    return Sp<StreamWriter>(new StreamWriter(sink...));
}
} // namespace

LogStream::LogStream(const String& path, LogStreamLevel level) : LogStream(&LogStreamRefTime::Default(), path, level) {}

LogStream::LogStream(const String& path, LogStreamLevel level, const String& headerAuthor, const String& headerCompany,
                     const String& headerProduct)
    : LogStream(&LogStreamRefTime::Default(), path, level, headerAuthor, headerCompany, headerProduct)
{
}

LogStream::LogStream(const ILogStreamRefTime* source, const String& path, LogStreamLevel level)
    : LogStream(source, path, level, String(), String(), String())
{
}

LogStream::LogStream(const ILogStreamRefTime* source, const String& path, LogStreamLevel level,
                     const String& headerAuthor, const String& headerCompany, const String& headerProduct)
    : LogStream(source, MakeWriter(source, headerAuthor, headerCompany, headerProduct, path, true), path, level,
                headerAuthor, headerCompany, headerProduct)
{
}

LogStream::LogStream(const Sp<IO::Stream>& stream, LogStreamLevel level)
    : LogStream(&LogStreamRefTime::Default(), stream, level)
{
}

LogStream::LogStream(const Sp<IO::Stream>& stream, LogStreamLevel level, const String& headerAuthor,
                     const String& headerCompany, const String& headerProduct)
    : LogStream(&LogStreamRefTime::Default(), stream, level, headerAuthor, headerCompany, headerProduct)
{
}

LogStream::LogStream(const ILogStreamRefTime* source, const Sp<IO::Stream>& stream, LogStreamLevel level)
    : LogStream(source, stream, level, String(), String(), String())
{
}

LogStream::LogStream(const ILogStreamRefTime* source, const Sp<IO::Stream>& stream, LogStreamLevel level,
                     const String& headerAuthor, const String& headerCompany, const String& headerProduct)
    : LogStream(source, MakeWriter(source, headerAuthor, headerCompany, headerProduct, stream), String(), level,
                headerAuthor, headerCompany, headerProduct)
{
}

LogStream::LogStream(const ILogStreamRefTime* source, const Sp<StreamWriter>& sink, const String& path,
                     LogStreamLevel level, const String& headerAuthor, const String& headerCompany,
                     const String& headerProduct)
    : writer(sink),
      fileName(path),
      author(headerAuthor),
      company(headerCompany),
      product(headerProduct)
{
    SetRefTime(source);
    ILogStream::SetLevel(level);
    writer->AutoFlush(true);
    String subject("Log");
    {
        const Lock lock(lockObject);
        if (const FileStream* const file = File(); file != nullptr)
        {
            currentSize = file->CanSeek() ? writer->BaseStream()->Length() : 0;
            subject = Path::GetFileName(file->Name());
        }
        WriteHeader();
    }
    WriteOwnRow("Start " + subject);
}

void LogStream::SetLevel(LogStreamLevel newLevel)
{
    const LogStreamLevel oldLevel = GetLevel();
    if (newLevel == oldLevel)
    {
        return;
    }
    WriteOwnRow("--------- Change log stream level from " + oldLevel.ToString() + " to " + newLevel.ToString() +
                " ---------");
    ILogStream::SetLevel(newLevel);
}

void LogStream::Write(const LogStreamChannel& channel, LogStreamLevel level, int errorCode, const String& message)
{
    if (!IsEnabled(level))
    {
        return;
    }
    NotNull(channel);
    NotNull(message);
    const Lock lock(lockObject);
    std::string row;
    row.reserve(FixedRowSize + message.Utf8().size());
    row += '|';
    AppendDate(row);
    row += '|';
    AppendRefTime(row, *refTime.load());
    row += '|';
    AppendChannel(row, channel);
    row += '|';
    row += level.ToString().Utf8().front();
    row += '|';
    AppendErrorCode(row, errorCode);
    row += '|';
    row += message.Utf8();
    row += '|';
    WriteRow(String(std::move(row)));
}

void LogStream::WriteBlank(const LogStreamChannel& channel, LogStreamLevel level)
{
    if (IsEnabled(level))
    {
        NotNull(channel);
        const Lock lock(lockObject);
        WriteRow(Filled("|", ' ', '|'));
    }
}

void LogStream::WriteSeparator(const LogStreamChannel& channel, LogStreamLevel level)
{
    if (IsEnabled(level))
    {
        NotNull(channel);
        const Lock lock(lockObject);
        WriteRow(Filled("|", '-', '|'));
    }
}

void LogStream::WriteDump(const LogStreamChannel& channel, LogStreamLevel level, const String& text)
{
    if (!IsEnabled(level))
    {
        return;
    }
    NotNull(channel);
    NotNull(text);
    const Lock lock(lockObject);
    std::string entry;
    AppendDate(entry);
    entry += " (";
    AppendRefTime(entry, *refTime.load());
    entry += ')' + channel.ToString().Utf8() + " :\r\n" + text.Utf8();
    writer->WriteLine(String(std::move(entry)));
    SplitIfTooLarge();
}

void LogStream::Close()
{
    const Lock lock(lockObject);
    if (!IsEnded())
    {
        const FileStream* const file = File();
        WriteOwnRow("Close " + (file == nullptr ? String("Log") : Path::GetFileName(file->Name())));
    }
    if (IsEnded()) // the row itself may have ended the log by a failed split (decision 60)
    {
        return;
    }
    writer->WriteLine(Filled("\\", '-', '/'));
    writer->WriteLine(String());
    writer->Flush();
    writer->Close();
}

int LogStream::BackupCount() const
{
    const Lock lock(lockObject);
    return backupCount;
}

void LogStream::BackupCount(int value)
{
    const Lock lock(lockObject);
    backupCount = value;
}

int LogStream::MaxFileSize() const
{
    const Lock lock(lockObject);
    return maxFileSize;
}

void LogStream::MaxFileSize(int value)
{
    const Lock lock(lockObject);
    maxFileSize = value;
}

int LogStream::LineWidth() const
{
    const Lock lock(lockObject);
    return lineWidth;
}

void LogStream::LineWidth(int value)
{
    if (value < 2)
    {
        throw ArgumentOutOfRangeException(ThrowSite);
    }
    const Lock lock(lockObject);
    lineWidth = value;
}

bool LogStream::IsEnded() const
{
    return writer->BaseStream()->IsClosed();
}

const FileStream* LogStream::File() const
{
    return dynamic_cast<const FileStream*>(&*writer->BaseStream());
}

void LogStream::WriteRow(const String& row)
{
    currentSize += row.Length();
    writer->WriteLine(row);
    SplitIfTooLarge();
}

/// A longer text is not cut.
String LogStream::Filled(const String& text, char32 filler, char32 end) const
{
    String line = text.PadRight(lineWidth - 1, filler);
    line += end;
    return line;
}

void LogStream::WriteHeader()
{
    const auto entry = [this](const char* label, const String& text)
    {
        if (!text.IsEmpty())
        {
            writer->WriteLine(Filled(label + text, ' ', '|'));
        }
    };
    writer->WriteLine(Filled("/", '-', '\\'));
    entry("| Author  : ", author);
    entry("| Company : ", company);
    entry("| Product : ", product);
    entry("| Date    : ", DateTime::Now().ToShortDateString());
    if (const FileStream* const file = File(); file != nullptr)
    {
        entry("| Path    : ", Path::GetDirectoryName(file->Name()));
        entry("| File    : ", Path::GetFileName(file->Name()));
    }
    entry("| Level   : ", GetLevel().ToString());
    writer->WriteLine(Filled("\\", '-', '/'));
    writer->WriteLine(String());
    writer->WriteLine(Filled("/", '-', '\\'));
    writer->WriteLine(Filled(ColumnsLine, ' ', '|'));
    writer->WriteLine(Filled(ColumnsRule, '-', '|'));
}

void LogStream::SplitIfTooLarge()
{
    if (currentSize <= maxFileSize || backupCount <= 0 || File() == nullptr)
    {
        return;
    }
    try
    {
        Split();
    }
    catch (const Exception& failure)
    {
        if (IsEnded())
        {
            return; // required: no exception, although the log has ended
        }
        // Required. A channel refuses an empty name, so the caller of the row gets that exception.
        Write(LogStreamChannel(""), LogStreamLevel::Critical, failure.ErrorCode(), "Error splitting log file");
        Close();
    }
}

void LogStream::Split()
{
    const String oldest = BackupName(backupCount - 1);
    if (IO::File::Exists(oldest))
    {
        IO::File::Delete(oldest);
    }
    for (int number = backupCount - 2; number >= 0; --number)
    {
        if (IO::File::Exists(BackupName(number)))
        {
            IO::File::Move(BackupName(number), BackupName(number + 1));
        }
    }
    writer->Close();
    IO::File::Move(fileName, BackupName(0));
    writer = Sp<StreamWriter>(new StreamWriter(fileName));
    writer->AutoFlush(true);
    currentSize = 0;
    WriteHeader();
}

String LogStream::BackupName(int number) const
{
    const String baseName =
        Path::Combine(Path::GetDirectoryName(fileName), Path::GetFileNameWithoutExtension(fileName) + ".bak");
    return number == 0 ? baseName : String::Format("{0}{1}", baseName, number);
}

void LogStream::WriteOwnRow(const String& message)
{
    static const LogStreamChannel blank(" ");
    Write(blank, message);
}
} // namespace Tesmo::System::LogStreams
