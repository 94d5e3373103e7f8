#include <Core/System/IO/FileStream.h>

#include "FailureText.h"
#include <Core/System/ArgumentException.h>
#include <Core/System/Array.h>
#include <Core/System/Checks.h>
#include <Core/System/IO/Directory.h>
#include <Core/System/IO/DirectoryNotFoundException.h>
#include <Core/System/IO/File.h>
#include <Core/System/IO/FileNotFoundException.h>
#include <Core/System/IO/Path.h>
#include <Core/System/NotSupportedException.h>
#include <Core/System/ObjectClosedException.h>
#include <Platform/Files.h>

#include <algorithm>

namespace Tesmo::System::IO
{
namespace
{
constexpr std::size_t ReadAheadSize = 4096; // bytes

String CheckedName(const String& path)
{
    if (NotNull(path).IsEmpty() || !Path::IsValid(path))
    {
        throw ArgumentException(ThrowSite);
    }
    return Path::GetFullPath(path);
}

/// Throws where mode and access do not fit each other, or do not fit what is on the disk.
void CheckMode(const FileMode& mode, int access, bool exists)
{
    const bool makesNew = mode == FileMode::Create || mode == FileMode::CreateNew;
    if (!mode.IsDefined() || access < FileAccess::Read || access > FileAccess::ReadWrite)
    {
        throw ArgumentOutOfRangeException(ThrowSite);
    }
    if ((makesNew && access == FileAccess::Read) || (mode == FileMode::Append && access != FileAccess::Write) ||
        (exists && mode == FileMode::Truncate && access == FileAccess::Read))
    {
        throw ArgumentException(ThrowSite);
    }
    if (exists && mode == FileMode::CreateNew)
    {
        throw IOException(ThrowSite);
    }
    if (!exists && (mode == FileMode::Open || mode == FileMode::Truncate))
    {
        throw FileNotFoundException(ThrowSite);
    }
}

/// Ignores a failure: the checks and the open that follow report it.
void CreateEmpty(const String& name)
{
    Platform::FileHandle file = Platform::NoFile;
    if (Platform::OpenFile(name.Utf8(), Platform::OpenOutput, file) == 0)
    {
        Platform::CloseFile(file);
    }
}

/// Create and Truncate with reading and writing keep what the file holds, as required: OpenInput makes it so.
/// (decision 50)
int FlagsOf(const FileMode& mode, int access)
{
    constexpr int both = Platform::OpenInput | Platform::OpenOutput;
    if (mode == FileMode::Append)
    {
        return Platform::OpenAppend;
    }
    if (access == FileAccess::Write)
    {
        return mode == FileMode::Open || mode == FileMode::OpenOrCreate ? both : Platform::OpenOutput;
    }
    return access == FileAccess::Read ? Platform::OpenInput : both;
}

void CheckResult(int code)
{
    if (code != 0)
    {
        throw IOException(ThrowSite);
    }
}
} // namespace

FileStream::FileStream(const String& path, FileMode openMode, int openAccess, FileShare)
    : name(CheckedName(path)),
      mode(openMode),
      access(openAccess),
      handle(Platform::NoFile)
{
    const bool exists = File::Exists(name);
    CheckMode(mode, access, exists);
    if (!exists && mode != FileMode::Append)
    {
        CreateEmpty(name);
    }
    if (!Directory::Exists(Path::GetDirectoryName(name)))
    {
        throw DirectoryNotFoundException(ThrowSite);
    }
    openFlags = FlagsOf(mode, access);
    OpenHandle(openFlags);
}

FileStream::~FileStream()
{
    if (handle != Platform::NoFile)
    {
        Platform::CloseFile(handle);
    }
}

const String& FileStream::Name() const
{
    return name;
}

bool FileStream::CanRead() const
{
    return !IsClosed() && access != FileAccess::Write;
}

bool FileStream::CanSeek() const
{
    return true;
}

bool FileStream::CanWrite() const
{
    return !IsClosed() && access != FileAccess::Read;
}

void FileStream::SetLength(std::int64_t length)
{
    CheckOpen();
    if (length < 0)
    {
        throw ArgumentOutOfRangeException(ThrowSite);
    }
    throw NotSupportedException(ThrowSite);
}

std::int64_t FileStream::Length()
{
    const std::int64_t position = GetPosition();
    const std::int64_t length = Move(0, SeekOrigin::End);
    Move(position, SeekOrigin::Begin);
    return length;
}

void FileStream::SetPosition(std::int64_t position)
{
    CheckOpen();
    if (position < 0)
    {
        throw ArgumentOutOfRangeException(ThrowSite);
    }
    Seek(position, SeekOrigin::Begin);
}

std::int64_t FileStream::GetPosition()
{
    return Seek(0, SeekOrigin::Current);
}

void FileStream::Close()
{
    if (IsClosed())
    {
        return;
    }
    std::int64_t reached = 0;
    savedPosition.reset();
    if (Platform::SeekInFile(handle, 0, static_cast<int>(SeekOrigin::Current), reached) == 0)
    {
        savedPosition = reached - Unread();
    }
    readAhead.clear();
    readAheadUsed = 0;
    Stream::Close();
    const int code = Platform::CloseFile(handle);
    handle = Platform::NoFile;
    CheckResult(code);
}

void FileStream::Flush()
{
    CheckOpen();
}

int FileStream::Read(Array<unsigned char>& buffer, int offset, int count)
{
    CheckRange(offset, count, NotNull(buffer).Length());
    CheckReadable();
    int total = 0;
    while (total < count && FillReadAhead())
    {
        const std::size_t size = std::min(readAhead.size() - readAheadUsed, static_cast<std::size_t>(count - total));
        std::copy_n(readAhead.data() + readAheadUsed, size, buffer.Data() + offset + total);
        readAheadUsed += size;
        total += static_cast<int>(size);
    }
    return total;
}

int FileStream::ReadByte()
{
    return FillReadAhead() ? readAhead[readAheadUsed++] : -1;
}

std::int64_t FileStream::Seek(std::int64_t offset, SeekOrigin origin)
{
    CheckOpen();
    if (origin < SeekOrigin::Begin || origin > SeekOrigin::End)
    {
        throw ArgumentOutOfRangeException(ThrowSite);
    }
    DropReadAhead();
    return Move(offset, origin);
}

void FileStream::Write(const Array<unsigned char>& buffer, int offset, int count)
{
    CheckRange(offset, count, NotNull(buffer).Length());
    Send(buffer.Data() + offset, static_cast<std::size_t>(count));
}

void FileStream::WriteByte(unsigned char byte)
{
    Send(&byte, 1);
}

void FileStream::Reopen()
{
    if (!IsClosed())
    {
        Close();
    }
    if (!File::Exists(name))
    {
        throw FileNotFoundException(ThrowSite);
    }
    OpenHandle(openFlags == Platform::OpenOutput ? openFlags | Platform::OpenInput : openFlags);
    MarkOpen();
    if (savedPosition)
    {
        Move(*savedPosition, SeekOrigin::Begin);
    }
}

void FileStream::OpenHandle(int flags)
{
    int code = Platform::OpenFile(name.Utf8(), flags, handle);
    if (code == 0 && flags == Platform::OpenAppend)
    {
        std::int64_t end = 0;
        code = Platform::SeekInFile(handle, 0, static_cast<int>(SeekOrigin::End), end);
        if (code != 0) // a pipe, for instance
        {
            Platform::CloseFile(handle);
            handle = Platform::NoFile;
        }
    }
    if (code != 0)
    {
        throw IOException(FailureText(name, code), ThrowSite);
    }
}

void FileStream::CheckOpen() const
{
    if (IsClosed())
    {
        throw ObjectClosedException(ThrowSite);
    }
}

void FileStream::CheckReadable() const
{
    CheckOpen();
    if (!CanRead())
    {
        throw NotSupportedException(ThrowSite);
    }
}

/// False at the end of the file.
bool FileStream::FillReadAhead()
{
    CheckReadable();
    if (readAheadUsed < readAhead.size())
    {
        return true;
    }
    std::size_t received = 0;
    readAhead.resize(ReadAheadSize);
    const int code = Platform::ReadFromFile(handle, readAhead.data(), readAhead.size(), received);
    readAhead.resize(received);
    readAheadUsed = 0;
    CheckResult(code);
    return received > 0;
}

std::int64_t FileStream::Unread() const
{
    return static_cast<std::int64_t>(readAhead.size() - readAheadUsed);
}

/// Moves the file's position back to the caller's.
void FileStream::DropReadAhead()
{
    if (Unread() > 0)
    {
        Move(-Unread(), SeekOrigin::Current);
    }
    readAhead.clear();
    readAheadUsed = 0;
}

std::int64_t FileStream::Move(std::int64_t offset, SeekOrigin origin)
{
    std::int64_t position = 0;
    CheckResult(Platform::SeekInFile(handle, offset, static_cast<int>(origin), position));
    return position;
}

void FileStream::Send(const unsigned char* bytes, std::size_t size)
{
    CheckOpen();
    if (!CanWrite())
    {
        throw NotSupportedException(ThrowSite);
    }
    DropReadAhead();
    CheckResult(Platform::WriteToFile(handle, bytes, size));
}
} // namespace Tesmo::System::IO
