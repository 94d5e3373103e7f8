#pragma once

#include <Core/System/IO/Stream.h>
#include <Core/System/IO/TextReader.h>
#include <Core/System/Text/Encoding.h>

namespace Tesmo::System::IO
{
/// Reads the text of a stream as UTF-8. A byte order mark is neither looked for nor skipped: it is the first character.
/// CR is dropped wherever it stands, so lines that end in CR LF read as if they ended in LF.
class StreamReader : public TextReader
{
public:
    /// Opens a file for reading; others may read and write it.
    /// @throws ArgumentNullException  path is null
    /// @throws ArgumentException, IO::FileNotFoundException and others  as FileStream gives them
    explicit StreamReader(const String& path);
    /// @throws ArgumentNullException  source is null or empty
    /// @throws ArgumentException      source cannot be read
    explicit StreamReader(const Sp<Stream>& source);

    void Close() override; ///< closes the stream
    int Peek() override;   ///< the next byte; -1 at the end
    int Read() override;   ///< a byte, not a character; -1 at the end
    /// The text up to the next LF or the end; empty at the end.
    /// @throws ObjectClosedException  the stream is closed
    String ReadLine() override;
    String ReadToEnd() override;

    /// Reads a byte ahead to find out, so it may block as Read does.
    bool EndOfStream();
    /// The stream given, or the one opened for path. Its position may be one byte ahead of what was read here.
    const Sp<Stream>& BaseStream() const;

private:
    template <class Stop>
    String ReadUntil(Stop stop);

    int lookAhead = -1;
    bool lookAheadValid = false;
    Sp<Stream> stream;
    Sp<Text::Encoding> encoding;
};
} // namespace Tesmo::System::IO
