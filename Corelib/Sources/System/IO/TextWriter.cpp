#include <Core/System/IO/TextWriter.h>

#include <Core/System/Checks.h>
#include <Core/System/Environment.h>
#include <Core/System/Threading/Lock.h>

namespace Tesmo::System::IO
{
namespace
{
using Threading::Lock;

class NullTextWriter : public TextWriter
{
};

class SynchronizedTextWriter : public TextWriter
{
public:
    explicit SynchronizedTextWriter(const Sp<TextWriter>& wrapped) : writer(wrapped) {}

    void Close() override
    {
        const Lock lock(*writer);
        writer->Close();
    }
    void Flush() override
    {
        const Lock lock(*writer);
        writer->Flush();
    }
    void Write(const String& text) override
    {
        const Lock lock(*writer);
        writer->Write(text);
    }
    void WriteLine(const String& text) override
    {
        const Lock lock(*writer);
        writer->WriteLine(text);
    }

private:
    Sp<TextWriter> writer;
};
} // namespace

TextWriter& TextWriter::Null()
{
    static NullTextWriter writer;
    return writer;
}

Sp<TextWriter> TextWriter::Synchronized(const Sp<TextWriter>& writer)
{
    NotEmpty(writer);
    return Sp<TextWriter>(new SynchronizedTextWriter(writer));
}

void TextWriter::Close() {}

void TextWriter::Flush() {}

void TextWriter::Write(const String&) {}

void TextWriter::WriteLine(const String& text)
{
    Write(text);
    WriteLine();
}

void TextWriter::WriteLine()
{
    Write(Environment::NewLine());
}
} // namespace Tesmo::System::IO
