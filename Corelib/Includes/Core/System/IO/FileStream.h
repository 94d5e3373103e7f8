#pragma once

#include <Core/System/IO/FileAccess.h>
#include <Core/System/IO/FileMode.h>
#include <Core/System/IO/FileShare.h>
#include <Core/System/IO/Stream.h>
#include <Core/System/String.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace Tesmo::System::IO
{
/// A file as a stream of bytes. What is written reaches the operating system before the call returns: one system call a
/// write, no buffer. Reading has a buffer. A failure of the file itself gives IOException; of a write that failed a part
/// may stand in the file.
class FileStream : public Stream
{
public:
    /// @param access  a number of FileAccess
    /// @param share   has no effect: others may always read and write the file
    /// @throws ArgumentNullException        path is null
    /// @throws ArgumentOutOfRangeException  mode or access is none
    /// @throws ArgumentException            path is empty or not valid; reading with Create, CreateNew, or Truncate of a
    ///                                      file that exists; Append with anything but writing
    /// @throws FileNotFoundException        Open or Truncate, and there is none
    /// @throws DirectoryNotFoundException   the folder does not exist
    /// @throws IOException                  CreateNew, and there is one; the file cannot be opened: names it, says why
    FileStream(const String& path, FileMode mode, int access, FileShare share);
    ~FileStream() override;

    const String& Name() const; ///< the full path

    bool CanRead() const override;
    bool CanSeek() const override; ///< true
    bool CanWrite() const override;
    /// Not supported.
    /// @throws ArgumentOutOfRangeException  length is negative
    void SetLength(std::int64_t length) override;
    std::int64_t Length() override;
    /// @throws ArgumentOutOfRangeException  position is negative
    void SetPosition(std::int64_t position) override;
    std::int64_t GetPosition() override;
    void Close() override; ///< a second time: no effect
    void Flush() override;
    int Read(Array<unsigned char>& buffer, int offset, int count) override;
    int ReadByte() override;
    /// @throws ArgumentOutOfRangeException  origin is none
    /// @throws IOException                  a position before the start
    std::int64_t Seek(std::int64_t offset, SeekOrigin origin) override;
    void Write(const Array<unsigned char>& buffer, int offset, int count) override;
    void WriteByte(unsigned char byte) override;

    /// Opens the same file again, closed or not, at the position where it stood. What it holds stays.
    /// @throws FileNotFoundException  it is gone
    virtual void Reopen();

private:
    void OpenHandle(int flags);
    void CheckOpen() const;
    void CheckReadable() const;
    bool FillReadAhead();
    std::int64_t Unread() const; ///< bytes of readAhead
    void DropReadAhead();
    std::int64_t Move(std::int64_t offset, SeekOrigin origin);
    void Send(const unsigned char* bytes, std::size_t size);

    String name;
    FileMode mode;
    int access;
    int openFlags = 0;                         ///< as the native layer names them
    std::intptr_t handle;                      ///< of the native layer
    std::optional<std::int64_t> savedPosition; ///< a pipe has none
    std::vector<unsigned char> readAhead;      ///< bytes that were read from the file
    std::size_t readAheadUsed = 0;             ///< of which so many were handed out
};
} // namespace Tesmo::System::IO
