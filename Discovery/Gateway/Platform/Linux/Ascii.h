#pragma once

namespace Zelkor::Discovery::Client::Platform
{

/// Of ASCII alone, whatever the locale.
constexpr bool IsLetterOrDigit(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

} // namespace Zelkor::Discovery::Client::Platform
