#include <Core/System/IO/Path.h>

#include <Platform/Files.h>

#include <Core/System/ArgumentException.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

namespace Tesmo::System::IO
{
namespace
{
constexpr std::string_view ForbiddenCharacters = "\"<>|";
constexpr unsigned char LastControlCharacter = 31;

bool IsForbidden(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return (byte >= 1 && byte <= LastControlCharacter) || ForbiddenCharacters.find(c) != std::string_view::npos;
}

const std::string& Checked(const String& path)
{
    if (!Path::IsValid(path))
    {
        throw ArgumentException(ThrowSite);
    }
    return path.Utf8();
}

/// A path cut into its parts, which follow one another without a gap.
struct Parts
{
    explicit Parts(const String& path)
    {
        const std::string_view text = Checked(path);
        const auto lastSeparator = std::find_if(text.rbegin(), text.rend(), Platform::IsSeparator);
        const std::size_t driveEnd = Platform::DriveLength(text);
        const std::size_t nameStart = std::max(driveEnd, static_cast<std::size_t>(text.rend() - lastSeparator));
        const std::size_t dot = text.rfind('.');
        const std::size_t nameEnd = dot == text.npos || dot < nameStart ? text.size() : dot;
        drive = text.substr(0, driveEnd);
        folders = text.substr(driveEnd, nameStart - driveEnd);
        name = text.substr(nameStart, nameEnd - nameStart);
        extension = text.substr(nameEnd);
    }

    std::string_view drive;
    std::string_view folders;
    std::string_view name;
    std::string_view extension;
};

String Joined(std::string_view first, std::string_view second)
{
    return String(std::string(first).append(second));
}
} // namespace

char32 Path::DirectorySeparator()
{
    return Platform::DirectorySeparator;
}

bool Path::IsValid(const String& path)
{
    return !IsNull(path) && std::none_of(path.Utf8().begin(), path.Utf8().end(), IsForbidden);
}

String Path::Combine(const String& a, const String& b)
{
    const std::string_view first = Checked(a);
    const std::string_view second = Checked(b);
    if (first.empty() || second.empty() || IsPathRooted(b))
    {
        return second.empty() ? a : b;
    }
    const bool ends = first.back() == Platform::DirectorySeparator;
    const bool begins = second.front() == Platform::DirectorySeparator;
    if (ends)
    {
        return Joined(first, second.substr(begins ? 1 : 0));
    }
    return Joined(std::string(first) + Platform::DirectorySeparator, second);
}

String Path::GetDirectoryName(const String& path)
{
    const Parts parts(path);
    return parts.folders.empty() ? String() : Joined(parts.drive, parts.folders);
}

String Path::GetFileName(const String& path)
{
    const Parts parts(path);
    return Joined(parts.name, parts.extension);
}

String Path::GetFileNameWithoutExtension(const String& path)
{
    return String(std::string(Parts(path).name));
}

String Path::GetExtension(const String& path)
{
    return String(std::string(Parts(path).extension));
}

bool Path::HasExtension(const String& path)
{
    return !GetExtension(path).IsEmpty();
}

String Path::GetFullPath(const String& path)
{
    std::string fullPath;
    if (!Platform::FullPath(Checked(path), fullPath))
    {
        throw ArgumentException(ThrowSite);
    }
    return String(std::move(fullPath));
}

String Path::GetPathRoot(const String& path)
{
    const std::string& text = Checked(path);
    return String(text.substr(0, Platform::RootLength(text)));
}

bool Path::IsPathRooted(const String& path)
{
    return !GetPathRoot(path).IsEmpty();
}
} // namespace Tesmo::System::IO
