#pragma once

#include <Core/System/IO/Stream.h>
#include <Core/System/IO/TextWriter.h>
#include <Core/System/Text/Encoding.h>

namespace Tesmo::System::IO
{
/// Writes text to a stream as UTF-8, without a byte order mark and without a buffer: one write to the stream a text.
class StreamWriter : public TextWriter
{
public:
    /// Creates the file or empties it.
    /// @throws ArgumentNullException  path is null
    /// @throws ArgumentException, IO::IOException and others  as FileStream gives them
    explicit StreamWriter(const String& path);
    /// @param append  goes on at the end of a file that exists
    StreamWriter(const String& path, bool append);
    /// @throws ArgumentNullException  target is null or empty
    /// @throws ArgumentException      target cannot be written
    explicit StreamWriter(const Sp<Stream>& target);
    /// Closes the stream.
    ~StreamWriter() override;

    void Close() override; ///< closes the stream
    void Flush() override; ///< flushes the stream
    /// @throws ArgumentNullException  text is null
    void Write(const String& text) override;
    /// The text and the line end reach the stream in one write (decision 198).
    void WriteLine(const String& text) override;
    using TextWriter::WriteLine;

    /// Whether every Write flushes the stream; false at first.
    virtual void AutoFlush(bool value);
    virtual bool AutoFlush() const;

    /// The stream given, or the one opened for path. All that was written here has reached it.
    const Sp<Stream>& BaseStream() const;

private:
    Sp<Text::Encoding> encoding;
    bool autoFlush = false;
    Sp<Stream> stream;
};
} // namespace Tesmo::System::IO
