#include <Core/System/IO/StreamReader.h>

#include <Core/System/ArgumentException.h>
#include <Core/System/Checks.h>
#include <Core/System/IO/FileStream.h>
#include <Core/System/ObjectClosedException.h>

#include <utility>

namespace Tesmo::System::IO
{
namespace
{
const Sp<Stream>& Readable(const Sp<Stream>& stream)
{
    NotEmpty(stream);
    if (!stream->CanRead())
    {
        throw ArgumentException(ThrowSite);
    }
    return stream;
}
} // namespace

StreamReader::StreamReader(const String& path)
    : StreamReader(Sp<Stream>(new FileStream(path, FileMode::Open, FileAccess::Read, FileShare::ReadWrite)))
{
}

StreamReader::StreamReader(const Sp<Stream>& source) : stream(Readable(source)), encoding(Text::Encoding::UTF8()) {}

void StreamReader::Close()
{
    stream->Close();
}

int StreamReader::Peek()
{
    if (!lookAheadValid)
    {
        lookAhead = stream->ReadByte();
        lookAheadValid = true;
    }
    return lookAhead;
}

int StreamReader::Read()
{
    const int byte = Peek();
    lookAhead = stream->ReadByte();
    return byte;
}

String StreamReader::ReadLine()
{
    if (stream->IsClosed())
    {
        throw ObjectClosedException(ThrowSite);
    }
    return ReadUntil([](char32 c) { return c == char32('\n'); });
}

String StreamReader::ReadToEnd()
{
    return ReadUntil([](char32) { return false; });
}

bool StreamReader::EndOfStream()
{
    return Peek() < 0;
}

const Sp<Stream>& StreamReader::BaseStream() const
{
    return stream;
}

/// Reads up to the first character for which stop is true; that one is read, too, but left out of the result.
template <class Stop>
String StreamReader::ReadUntil(Stop stop)
{
    const Up<Text::Encoding::Decoder> decoder = encoding->CreateDecoder();
    ustring text;
    for (int byte = Read(); byte >= 0; byte = Read())
    {
        const std::optional<char32> c = decoder->Decode(static_cast<unsigned char>(byte));
        if (c && stop(*c))
        {
            break;
        }
        if (c && *c != char32('\r'))
        {
            text.Append(*c);
        }
    }
    return String(std::move(text));
}
} // namespace Tesmo::System::IO
