#pragma once

#include <Core/System/Array.h>
#include <Core/System/IO/Stream.h>

#include <gmock/gmock.h>

#include <string>

/// Keeps what is written to it, and counts the calls; everything else answers with zero.
class WriteRecorder : public Tesmo::System::IO::Stream
{
public:
    MOCK_METHOD(bool, CanRead, (), (const, override));
    MOCK_METHOD(bool, CanSeek, (), (const, override));
    MOCK_METHOD(void, SetLength, (std::int64_t), (override));
    MOCK_METHOD(std::int64_t, Length, (), (override));
    MOCK_METHOD(void, SetPosition, (std::int64_t), (override));
    MOCK_METHOD(std::int64_t, GetPosition, (), (override));
    MOCK_METHOD(int, Read, (Tesmo::System::Array<unsigned char>&, int, int), (override));
    MOCK_METHOD(int, ReadByte, (), (override));
    MOCK_METHOD(std::int64_t, Seek, (std::int64_t, Tesmo::System::IO::SeekOrigin), (override));
    bool CanWrite() const override
    {
        return true;
    }
    void Flush() override
    {
        ++flushes;
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

using RecordingStream = testing::NiceMock<WriteRecorder>;
