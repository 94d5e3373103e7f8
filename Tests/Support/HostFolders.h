#pragma once

#include <filesystem>
#include <string>

/// The folders that the program under test finds on its host: a log root and a program root of the test's own, gone with
/// all their files at the end of the scope.
class HostFolders
{
public:
    HostFolders();
    ~HostFolders();
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

    /// Gives this (forked) process mounts of its own, with these folders in the place of the host's.
    /// @returns false where the system refuses
    bool Enter() const;

private:
    std::filesystem::path aboveLogs;
    std::filesystem::path programs;
};
