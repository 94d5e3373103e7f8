#pragma once

#include <filesystem>
#include <string>

/// What the program under test finds on its host: a log root and a program root of the test's own, gone with all their
/// files at the end of the scope. The host is this one; another one starts the program its own way.
class HostFolders
{
public:
    HostFolders();
    virtual ~HostFolders();
    HostFolders(const HostFolders&) = delete;
    HostFolders& operator=(const HostFolders&) = delete;

    /// The folder above the log root, where the root itself does not stand yet.
    const std::filesystem::path& AboveLogs() const
    {
        return aboveLogs;
    }

    /// The program's log file.
    std::filesystem::path LogFile() const;

    /// What the log file holds now; empty while there is none.
    std::string Log() const;

    /// The folder of the file-transfer infos, with the folder of the products' plug-ins: both made, and empty.
    std::filesystem::path Discovery() const;

    /// Puts the program in the place of this (forked) process, under the host name STUDIO4 and with these folders in
    /// the place of the host's. The process ends with code 127 if that fails.
    /// @attention an exception must not leave it
    [[noreturn]] virtual void BecomeProgram() const noexcept;

private:
    std::filesystem::path aboveLogs;
    std::filesystem::path programs;
};
