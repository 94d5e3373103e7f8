#include "HostNameRule.h"

#include "Ascii.h"

#include <algorithm>

namespace Zelkor::Discovery::Client::Platform
{

namespace
{

constexpr std::size_t MaximumLength = 64; // characters

bool IsLabel(std::string_view label)
{
    return !label.empty() && label.front() != '-' && label.back() != '-' &&
           std::all_of(label.begin(), label.end(), [](char c) { return c == '-' || IsLetterOrDigit(c); });
}

} // namespace

bool IsHostName(std::string_view name)
{
    if (name.size() > MaximumLength)
    {
        return false;
    }
    const std::size_t dot = name.find('.');
    return IsLabel(name.substr(0, dot)) && (dot == std::string_view::npos || IsHostName(name.substr(dot + 1)));
}

} // namespace Zelkor::Discovery::Client::Platform
