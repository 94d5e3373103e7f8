#pragma once

#include <Core/LogStream/ILogStream.h>
#include <Core/System/Exception.h>
#include <Core/System/Sp.h>
#include <Core/System/String.h>

namespace Zelkor::Discovery
{
/// Owner of the process's one log stream; all code of the program writes to it. It takes no lock: the stream is
/// installed before there are other threads, and from then on only read.
class DiscoveryLogger
{
public:
    /// The one object of the process.
    static DiscoveryLogger& Instance();

    DiscoveryLogger(const DiscoveryLogger&) = delete;
    DiscoveryLogger& operator=(const DiscoveryLogger&) = delete;

    /// Logs to a file from now on, and makes its folder with all missing parents. A stream that is installed is closed
    /// first. Three backups are kept; at Debug the banners after the first header are 1024 characters wide.
    /// @throws Tesmo::System::IO::IOException  the folder cannot be made or the file cannot be opened: names it, says why
    /// @throws Tesmo::System::ArgumentException  path is not valid
    void Open(const Tesmo::System::String& path, Tesmo::System::LogStreams::LogStreamLevel newLevel);

    /// Opens the file of the last Open again, if no stream is installed.
    /// @throws Tesmo::System::InvalidOperationException  there was none, or SetStream came after it
    void Reopen();

    /// Installs a stream; the file of the last Open is forgotten.
    void SetStream(const Tesmo::Sp<Tesmo::System::LogStreams::ILogStream>& newStream);

    /// True while a stream is installed.
    bool IsOpen() const;

    /// One row, or nothing while no stream is installed.
    void Write(const Tesmo::System::LogStreams::LogStreamChannel& channel, const Tesmo::System::String& message,
               Tesmo::System::LogStreams::LogStreamLevel level);

    /// Two rows at Critical about an exception that was caught, or nothing while no stream is installed.
    void Write(const Tesmo::System::LogStreams::LogStreamChannel& channel, const Tesmo::System::String& message,
               const Tesmo::System::Exception& exception);

    /// Closes the stream and drops it, also where closing fails; what the stream throws then reaches the caller.
    /// @throws std::exception  no stream is installed
    void Close();

private:
    DiscoveryLogger() = default;

    void OpenFile();

    Tesmo::System::String fileName; ///< of the last Open
    Tesmo::System::LogStreams::LogStreamLevel fileLevel = Tesmo::System::LogStreams::LogStreamLevel::None;
    Tesmo::Sp<Tesmo::System::LogStreams::ILogStream> stream;
};
} // namespace Zelkor::Discovery
