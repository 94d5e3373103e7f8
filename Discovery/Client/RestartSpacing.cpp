#include "RestartSpacing.h"

#include <algorithm>

namespace Zelkor::Discovery::Client
{
namespace
{
constexpr int Shortest = 1000; // milliseconds
constexpr int Longest = 60000;
} // namespace

// decision 121
int RestartSpacing::Next(std::chrono::steady_clock::duration held)
{
    const bool hasFailed = held < std::chrono::milliseconds(Longest);
    delay = hasFailed ? std::clamp(delay * 2, Shortest, Longest) : 0;
    return delay;
}
} // namespace Zelkor::Discovery::Client
