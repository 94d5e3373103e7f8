#include <Core/System/IO/StreamWriter.h>

#include <Core/System/ArgumentException.h>
#include <Core/System/Array.h>
#include <Core/System/Checks.h>
#include <Core/System/Environment.h>
#include <Core/System/IO/File.h>
#include <Core/System/IO/FileStream.h>
#include <Core/System/Text/UTF8Encoding.h>

namespace Tesmo::System::IO
{
namespace
{
const Sp<Stream>& Writable(const Sp<Stream>& stream)
{
    NotEmpty(stream);
    if (!stream->CanWrite())
    {
        throw ArgumentException(ThrowSite);
    }
    return stream;
}

Sp<Stream> OpenFile(const String& path, FileMode mode)
{
    return Sp<Stream>(new FileStream(path, mode, FileAccess::Write, FileShare::Read));
}
} // namespace

StreamWriter::StreamWriter(const String& path) : StreamWriter(path, false) {}

StreamWriter::StreamWriter(const String& path, bool append)
    : StreamWriter(OpenFile(path, append && File::Exists(path) ? FileMode::Append : FileMode::Create))
{
}

StreamWriter::StreamWriter(const Sp<Stream>& target) : encoding(new Text::UTF8Encoding(false)), stream(Writable(target))
{
}

StreamWriter::~StreamWriter()
{
    try
    {
        Close();
    }
    catch (const Exception&) // a destructor cannot report it
    {
    }
}

void StreamWriter::Close()
{
    stream->Close();
}

void StreamWriter::Flush()
{
    stream->Flush();
}

void StreamWriter::Write(const String& text)
{
    const Array<unsigned char> bytes = encoding->GetBytes(NotNull(text));
    if (bytes.Length() > 0)
    {
        stream->Write(bytes, 0, bytes.Length());
    }
    if (autoFlush)
    {
        Flush();
    }
}

void StreamWriter::WriteLine(const String& text)
{
    Write(text + Environment::NewLine());
}

void StreamWriter::AutoFlush(bool value)
{
    autoFlush = value;
}

bool StreamWriter::AutoFlush() const
{
    return autoFlush;
}

const Sp<Stream>& StreamWriter::BaseStream() const
{
    return stream;
}
} // namespace Tesmo::System::IO
