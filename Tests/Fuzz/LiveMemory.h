#pragma once

namespace Zelkor::Discovery
{
/// Blocks of the free store that are in use now, in all threads. The program's new and delete are counted; cJSON takes
/// its memory from them too.
long LiveBlocks();
} // namespace Zelkor::Discovery
