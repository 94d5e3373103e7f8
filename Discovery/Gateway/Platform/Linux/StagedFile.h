#pragma once

#include <string>

namespace Zelkor::Discovery::Client::Platform
{

/// A new text for a configuration file: written beside the file, then put in its place in one step, and unless it is
/// kept, taken back in one step, at the latest by the destructor. The files beside it have names that begin with a dot,
/// so that no program takes them for configuration.
class StagedFile
{
public:
    /// @param path  of the file, which need not exist; links are followed
    explicit StagedFile(const std::string& path);
    ~StagedFile();
    StagedFile(const StagedFile&) = delete;
    StagedFile& operator=(const StagedFile&) = delete;

    /// Writes the new text beside the file, down to the disk, with the file's owner and mode; if there is no file,
    /// readable by everybody.
    /// @returns 0, or errno
    int Prepare(const std::string& text);

    /// Puts the text in the file's place.
    /// @returns 0, or errno
    int Commit();

    /// After Commit: lets the new text stay.
    void Keep();

    /// After Commit: puts the former file back, or removes the file if there was none before.
    /// @returns 0, or errno: the former file stays beside the new one then
    int Restore();

private:
    std::string path;
    std::string folder; ///< with a slash at its end
    std::string staged; ///< the path of the new text, until it is committed
    std::string former; ///< a second name of the former file, while it can come back
    bool isCommitted = false;
    bool isNew = false;
};

/// The whole text of a file; empty if it can't be read or is too large for a configuration file (over 1 MiB).
std::string ReadConfiguration(const std::string& path);

} // namespace Zelkor::Discovery::Client::Platform
