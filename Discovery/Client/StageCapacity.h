#pragma once

namespace Zelkor::Discovery
{
/// Records that may be outstanding between two stages of the client.
constexpr int StageCapacity = 512;
} // namespace Zelkor::Discovery
