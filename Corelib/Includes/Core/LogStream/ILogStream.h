#pragma once

#include <Core/LogStream/ILogStreamRefTime.h>
#include <Core/LogStream/LogStreamChannel.h>
#include <Core/LogStream/LogStreamLevel.h>
#include <Core/System/Exception.h>
#include <Core/System/Int32.h>
#include <Core/System/String.h>
#include <Core/System/Virtual.h>

#include <atomic>

namespace Tesmo::System::LogStreams
{
/// A log. A class that derives from it supplies the primitive Write, the other primitives as far as it has them, and
/// Close; every other form ends in the primitive Write through this interface. All threads may write at the same time.
/// A null channel, message or exception gives ArgumentNullException.
class ILogStream : public Virtual
{
public:
    /// True when a row of this level passes the filter: its number is not above the stream's.
    virtual bool IsEnabled(LogStreamLevel level) const;
    virtual LogStreamLevel GetLevel() const;
    virtual void SetLevel(LogStreamLevel newLevel);

    /// @param source  not owned; it must outlive the stream
    /// @throws ArgumentNullException  source is a null pointer
    virtual void SetRefTime(const ILogStreamRefTime* source);

    /// The primitive: one row. No effect here.
    /// @param errorCode  0 for none
    virtual void Write(const LogStreamChannel& channel, LogStreamLevel level, int errorCode, const String& message);
    /// One row without text. No effect here.
    virtual void WriteBlank(const LogStreamChannel& channel, LogStreamLevel level);

    /// Two rows at Critical with the exception's code: the message with the exception's, and the place of the throw.
    virtual void Write(const LogStreamChannel& channel, const String& message, const Exception& exception);
    /// Two rows at Critical with the exception's code: the exception's message, and the place of the throw.
    virtual void Write(const LogStreamChannel& channel, const Exception& exception);
    virtual void Write(const LogStreamChannel& channel, int errorCode, const String& message); ///< at Standard
    virtual void Write(const LogStreamChannel& channel, LogStreamLevel level, const String& message);
    virtual void Write(const LogStreamChannel& channel, const String& message); ///< at Standard
    virtual void WriteBlank(const LogStreamChannel& channel);                   ///< at Standard

    /// Ends the log. No effect here.
    virtual void Close();
    /// No effect.
    virtual void Idle();
    /// A dashed row. No effect here.
    virtual void WriteSeparator(const LogStreamChannel& channel, LogStreamLevel level);
    /// An entry of free form. No effect here.
    virtual void WriteDump(const LogStreamChannel& channel, LogStreamLevel level, const String& text);

protected:
    ILogStream();

    /// What all streams share. Level and source are read without the lock of a stream.
    std::atomic<int> currentLevel; ///< the filter, Standard at first
    std::atomic<const ILogStreamRefTime*> refTime;
    Int32 maxFileSize = 0x500000; ///< size of a log file that starts its splitting, in characters
    Int32 lineWidth = 256;        ///< width of banners and blank rows, in characters

private:
    void WriteFailure(const LogStreamChannel& channel, const String& text, const Exception& exception);
};
} // namespace Tesmo::System::LogStreams
