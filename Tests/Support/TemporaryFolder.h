#pragma once

#include <Core/System/String.h>

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

/// A folder of a test's own, gone with all its files at the end of the scope.
class TemporaryFolder
{
public:
    TemporaryFolder() : path(std::filesystem::temp_directory_path() / Unique())
    {
        std::filesystem::create_directory(path);
    }
    ~TemporaryFolder()
    {
        std::error_code ignored; // Win32 keeps files that are open
        std::filesystem::remove_all(path, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    /// The path of a file in the folder; of the folder without a name.
    Tesmo::System::String Path(const std::string& name = std::string()) const
    {
        return Tesmo::System::String((name.empty() ? path : path / name).string());
    }

    void Write(const std::string& name, const std::string& bytes) const
    {
        std::ofstream(path / name, std::ios::binary) << bytes;
    }

    std::string Read(const std::string& name) const
    {
        std::ifstream file(path / name, std::ios::binary);
        std::ostringstream bytes;
        bytes << file.rdbuf();
        return bytes.str();
    }

    bool Has(const std::string& name) const
    {
        return std::filesystem::exists(path / name);
    }

    void MakeFolder(const std::string& name) const
    {
        std::filesystem::create_directory(path / name);
    }

private:
    static std::string Unique()
    {
        static int count = 0;
        const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
        return "zelkor-test-" + std::to_string(now) + "-" + std::to_string(++count);
    }

    std::filesystem::path path;
};

/// A test with a folder of its own.
class FolderTest : public testing::Test
{
protected:
    const TemporaryFolder folder;
};
