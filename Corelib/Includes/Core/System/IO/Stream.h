#pragma once

#include <Core/System/ArrayDeclaration.h>
#include <Core/System/IO/SeekOrigin.h>
#include <Core/System/Object.h>

#include <cstdint>

namespace Tesmo::System::IO
{
/// A sequence of bytes. It takes no lock: one thread at a time.
/// A closed stream gives ObjectClosedException, what a stream is not made for NotSupportedException, a null buffer
/// ArgumentNullException, a range outside of the buffer ArgumentOutOfRangeException.
class Stream : public Object
{
public:
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;

    /// What the stream is made for; a closed one can be neither read nor written.
    virtual bool CanRead() const = 0;
    virtual bool CanSeek() const = 0;
    virtual bool CanTimeout() const; ///< false
    virtual bool CanWrite() const = 0;
    /// In bytes; positions count from the start.
    /// @throws ArgumentOutOfRangeException  the argument is negative
    virtual void SetLength(std::int64_t length) = 0;
    virtual std::int64_t Length() = 0; ///< in bytes
    virtual void SetPosition(std::int64_t position) = 0;
    virtual std::int64_t GetPosition() = 0;

    /// Flushes, and marks the stream as closed.
    virtual void Close();
    virtual void Flush() = 0;
    virtual bool IsClosed() const;

    /// Reads up to count bytes into buffer from offset on.
    /// @returns the number of bytes; 0 at the end
    virtual int Read(Array<unsigned char>& buffer, int offset, int count) = 0;
    /// @returns the byte, or -1 at the end
    virtual int ReadByte() = 0;
    /// @returns the new position
    virtual std::int64_t Seek(std::int64_t offset, SeekOrigin origin) = 0;
    virtual void Write(const Array<unsigned char>& buffer, int offset, int count) = 0;
    virtual void WriteByte(unsigned char byte) = 0;

protected:
    Stream() = default;

    /// For a stream that opens again.
    void MarkOpen();

private:
    bool closed = false;
};
} // namespace Tesmo::System::IO
