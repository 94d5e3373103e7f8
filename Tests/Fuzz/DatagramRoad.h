#pragma once

namespace Zelkor::Discovery
{
/// What becomes of a datagram that the client receives: the bytes stand in a zeroed buffer of 2048 bytes, or a larger
/// one, become characters one for one, and are read. A message that comes of it is written again.
/// @param size  0 to 65507
/// @returns false for a datagram that is dropped
/// @throws std::exception  what a worker of the client would not catch, or a written message that is no JSON text
bool TakeDatagram(const unsigned char* bytes, int size);
} // namespace Zelkor::Discovery
