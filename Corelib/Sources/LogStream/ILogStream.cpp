#include <Core/LogStream/ILogStream.h>

#include <Core/LogStream/LogStreamRefTime.h>
#include <Core/System/ArgumentNullException.h>
#include <Core/System/Checks.h>

#include <string>

namespace Tesmo::System::LogStreams
{
ILogStream::ILogStream()
    : currentLevel(static_cast<int>(LogStreamLevel::Standard)),
      refTime(&LogStreamRefTime::Default())
{
}

bool ILogStream::IsEnabled(LogStreamLevel level) const
{
    return level.Value() <= currentLevel;
}

LogStreamLevel ILogStream::GetLevel() const
{
    return LogStreamLevel(currentLevel);
}

void ILogStream::SetLevel(LogStreamLevel newLevel)
{
    currentLevel = newLevel.Value();
}

void ILogStream::SetRefTime(const ILogStreamRefTime* source)
{
    NotNull(source);
    refTime = source;
}

void ILogStream::Write(const LogStreamChannel&, LogStreamLevel, int, const String&) {}

void ILogStream::WriteBlank(const LogStreamChannel&, LogStreamLevel) {}

void ILogStream::Write(const LogStreamChannel& channel, const String& message, const Exception& exception)
{
    NotNull(message);
    NotNull(exception);
    WriteFailure(channel, message + ": " + exception.Message(), exception);
}

void ILogStream::Write(const LogStreamChannel& channel, const Exception& exception)
{
    NotNull(exception);
    WriteFailure(channel, exception.Message(), exception);
}

void ILogStream::Write(const LogStreamChannel& channel, int errorCode, const String& message)
{
    Write(channel, LogStreamLevel::Standard, errorCode, message);
}

void ILogStream::Write(const LogStreamChannel& channel, LogStreamLevel level, const String& message)
{
    Write(channel, level, 0, message);
}

void ILogStream::Write(const LogStreamChannel& channel, const String& message)
{
    Write(channel, LogStreamLevel::Standard, 0, message);
}

void ILogStream::WriteBlank(const LogStreamChannel& channel)
{
    WriteBlank(channel, LogStreamLevel::Standard);
}

void ILogStream::Close() {}

void ILogStream::Idle() {}

void ILogStream::WriteSeparator(const LogStreamChannel&, LogStreamLevel) {}

void ILogStream::WriteDump(const LogStreamChannel&, LogStreamLevel, const String&) {}

void ILogStream::WriteFailure(const LogStreamChannel& channel, const String& text, const Exception& exception)
{
    const int errorCode = exception.ErrorCode();
    const String place = exception.File() + ":" + String(std::to_string(exception.Line()));
    Write(channel, LogStreamLevel::Critical, errorCode, text + ", location: ");
    Write(channel, LogStreamLevel::Critical, errorCode, place);
}
} // namespace Tesmo::System::LogStreams
