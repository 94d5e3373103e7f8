#pragma once

#include <string>

namespace Zelkor::Discovery::Client::Platform
{

/// A new text for a configuration file: written beside it, put in its place in one step, and taken back in one step,
/// also by the end of the object, unless it is kept. Names beside the file begin with a dot, so that no program takes
/// them for configuration.
class StagedFile
{
public:
    /// @param path  of the file, which need not be there yet; links are followed
    explicit StagedFile(const std::string& path);
    ~StagedFile();
    StagedFile(const StagedFile&) = delete;
    StagedFile& operator=(const StagedFile&) = delete;

    /// Writes the new text beside the file, down to the disk, with the file's owner and mode; a new file may be read by
    /// everybody.
    /// @returns 0, or errno
    int Prepare(const std::string& text);

    /// Puts the text in the file's place.
    /// @returns 0, or errno
    int Commit();

    /// Gives up the way back.
    void Keep();

    /// After Commit: puts the former file in place again, or none where there was none.
    /// @returns 0, or errno; the former file then stays beside the new one
    int Restore();

private:
    std::string path;
    std::string folder; ///< with a slash at its end
    std::string staged; ///< the path of the new text, until it is committed
    std::string former; ///< a second name of the former file, while it can come back
    bool isCommitted = false;
    bool isNew = false;
};

/// The text of a file, whole or empty; what is larger than a configuration file can be (1 MiB) counts as empty.
std::string ReadConfiguration(const std::string& path);

} // namespace Zelkor::Discovery::Client::Platform
