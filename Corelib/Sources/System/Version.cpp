#include <Core/System/Version.h>

#include <Core/System/ArgumentNullException.h>
#include <Core/System/ArgumentOutOfRangeException.h>
#include <Core/System/Array.h>
#include <Core/System/Checks.h>
#include <Core/System/FormatException.h>
#include <Core/System/Int32.h>
#include <Core/System/String.h>

namespace Tesmo::System
{
Version::Version(int major, int minor) : majorNumber(NotNegative(major)), minorNumber(NotNegative(minor)) {}

Version::Version(int major, int minor, int build) : Version(major, minor)
{
    buildNumber = NotNegative(build);
}

Version::Version(int major, int minor, int build, int revision) : Version(major, minor, build)
{
    revisionNumber = NotNegative(revision);
}

Version Version::Parse(const String& text)
{
    NotNull(text);
    const Sp<Array<String>> parts = text.Split('.');
    Version version;
    int* const numbers[] = {&version.majorNumber, &version.minorNumber, &version.buildNumber, &version.revisionNumber};
    if (parts->Length() > static_cast<int>(std::size(numbers)))
    {
        throw FormatException(ThrowSite);
    }
    for (int i = 0; i < parts->Length(); ++i)
    {
        *numbers[i] = NotNegative(Int32::Parse((*parts)[i]));
    }
    return version;
}

bool Version::operator==(const Version& other) const
{
    return !IsNull(other) && (*this <=> other) == 0;
}

std::strong_ordering Version::operator<=>(const Version& other) const
{
    if (const auto order = majorNumber <=> NotNull(other).majorNumber; order != 0)
    {
        return order;
    }
    if (const auto order = minorNumber <=> other.minorNumber; order != 0)
    {
        return order;
    }
    if (const auto order = buildNumber <=> other.buildNumber; order != 0)
    {
        return order;
    }
    return revisionNumber <=> other.revisionNumber;
}

String Version::ToString() const
{
    String text = String::Format("{0}.{1}", majorNumber, minorNumber);
    if (buildNumber != -1)
    {
        text += String::Format(".{0}", buildNumber);
    }
    if (revisionNumber != -1)
    {
        text += String::Format(".{0}", revisionNumber);
    }
    return text;
}

bool Version::Equals(const Object& other) const
{
    const Version* const version = IsNull(other) ? nullptr : dynamic_cast<const Version*>(&other);
    return version != nullptr && *this == *version;
}

int Version::CompareTo(const IComparable& other) const
{
    const Version* const version = IsNull(other) ? nullptr : dynamic_cast<const Version*>(&other);
    return version == nullptr || *this > *version ? 1 : *this < *version ? -1 : 0;
}

int Version::GetHashCode() const
{
    unsigned hash = 0;
    for (const int number : {majorNumber, minorNumber, buildNumber, revisionNumber})
    {
        hash = hash * 31 + static_cast<unsigned>(number);
    }
    return static_cast<int>(hash);
}

Object* Version::Clone() const
{
    return new Version(*this);
}
} // namespace Tesmo::System
