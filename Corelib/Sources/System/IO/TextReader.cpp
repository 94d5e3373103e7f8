#include <Core/System/IO/TextReader.h>

#include <Core/System/Checks.h>
#include <Core/System/Threading/Lock.h>

namespace Tesmo::System::IO
{
namespace
{
using Threading::Lock;

class NullTextReader : public TextReader
{
public:
    String ReadLine() override
    {
        return String();
    }
    String ReadToEnd() override
    {
        return String();
    }
};

class SynchronizedTextReader : public TextReader
{
public:
    explicit SynchronizedTextReader(const Sp<TextReader>& wrapped) : reader(wrapped) {}

    void Close() override
    {
        const Lock lock(*reader);
        reader->Close();
    }
    int Peek() override
    {
        const Lock lock(*reader);
        return reader->Peek();
    }
    int Read() override
    {
        const Lock lock(*reader);
        return reader->Read();
    }
    String ReadLine() override
    {
        const Lock lock(*reader);
        return reader->ReadLine();
    }
    String ReadToEnd() override
    {
        const Lock lock(*reader);
        return reader->ReadToEnd();
    }

private:
    Sp<TextReader> reader;
};
} // namespace

TextReader& TextReader::Null()
{
    static NullTextReader reader;
    return reader;
}

Sp<TextReader> TextReader::Synchronized(const Sp<TextReader>& reader)
{
    NotEmpty(reader);
    return Sp<TextReader>(new SynchronizedTextReader(reader));
}

void TextReader::Close() {}

int TextReader::Peek()
{
    return -1;
}

int TextReader::Read()
{
    return -1;
}
} // namespace Tesmo::System::IO
