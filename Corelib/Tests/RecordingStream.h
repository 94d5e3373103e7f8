#pragma once

#include <Core/System/Array.h>
#include <Core/System/IO/Stream.h>

#include <string>

/// Keeps what is written to it, and counts the calls.
class RecordingStream : public Tesmo::System::IO::Stream
{
public:
    bool CanRead() const override
    {
        return false;
    }
    bool CanSeek() const override
    {
        return false;
    }
    bool CanWrite() const override
    {
        return true;
    }
    void SetLength(std::int64_t) override {}
    std::int64_t Length() override
    {
        return 0;
    }
    void SetPosition(std::int64_t) override {}
    std::int64_t GetPosition() override
    {
        return 0;
    }
    void Flush() override
    {
        ++flushes;
    }
    int Read(Tesmo::System::Array<unsigned char>&, int, int) override
    {
        return 0;
    }
    int ReadByte() override
    {
        return -1;
    }
    std::int64_t Seek(std::int64_t, Tesmo::System::IO::SeekOrigin) override
    {
        return 0;
    }
    void Write(const Tesmo::System::Array<unsigned char>& buffer, int offset, int count) override
    {
        ++writes;
        text.append(buffer.begin() + offset, buffer.begin() + offset + count);
    }
    void WriteByte(unsigned char byte) override
    {
        text += static_cast<char>(byte);
    }

    std::string text;
    int writes = 0;
    int flushes = 0;
};
