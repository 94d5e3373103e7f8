#include "DiscoveryLogger.h"

#include <Core/LogStream/LogStream.h>
#include <Core/System/IO/Directory.h>
#include <Core/System/IO/Path.h>
#include <Core/System/InvalidOperationException.h>

namespace Zelkor::Discovery
{
using Tesmo::null, Tesmo::Sp, Tesmo::System::Exception, Tesmo::System::InvalidOperationException, Tesmo::System::String,
    Tesmo::System::IO::Directory, Tesmo::System::IO::Path, Tesmo::System::LogStreams::ILogStream,
    Tesmo::System::LogStreams::LogStream, Tesmo::System::LogStreams::LogStreamChannel,
    Tesmo::System::LogStreams::LogStreamLevel;

namespace
{
constexpr int BackupCount = 3;
constexpr int DebugLineWidth = 1024; // characters
} // namespace

DiscoveryLogger& DiscoveryLogger::Instance()
{
    static DiscoveryLogger instance;
    return instance;
}

void DiscoveryLogger::Open(const String& path, LogStreamLevel newLevel)
{
    fileName = path;
    fileLevel = newLevel;
    const String folder = Path::GetDirectoryName(Path::GetFullPath(path));
    if (!Directory::Exists(folder))
    {
        Directory::CreateDirectory(folder);
    }
    if (IsOpen())
    {
        Close();
    }
    OpenFile();
}

void DiscoveryLogger::Reopen()
{
    if (IsOpen())
    {
        return;
    }
    if (fileName.IsEmpty())
    {
        throw InvalidOperationException(ThrowSite);
    }
    OpenFile();
}

void DiscoveryLogger::SetStream(const Sp<ILogStream>& newStream)
{
    fileName = String();
    stream = newStream;
}

bool DiscoveryLogger::IsOpen() const
{
    return stream != null;
}

void DiscoveryLogger::Write(const LogStreamChannel& channel, const String& message, LogStreamLevel rowLevel)
{
    if (IsOpen())
    {
        stream->Write(channel, rowLevel, message);
    }
}

void DiscoveryLogger::Write(const LogStreamChannel& channel, const String& message, const Exception& exception)
{
    if (IsOpen())
    {
        stream->Write(channel, message, exception);
    }
}

void DiscoveryLogger::Close()
{
    const Sp<ILogStream> closed = stream;
    // decision 60
    stream.Reset(nullptr); // first: a stream that can't be closed shall not stand in the way of the next one
    closed->Close();
}

void DiscoveryLogger::OpenFile()
{
    Sp<LogStream> file(new LogStream(fileName, fileLevel));
    stream = file;
    file->BackupCount(BackupCount);
    if (fileLevel == LogStreamLevel::Debug)
    {
        file->LineWidth(DebugLineWidth); // only now: the header that is written already keeps its width
    }
}
} // namespace Zelkor::Discovery
