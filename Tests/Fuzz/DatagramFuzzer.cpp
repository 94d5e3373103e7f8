#include "DatagramRoad.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t largestDatagram = 65507; // bytes; 65535 less the headers of RFC 791 and RFC 768
    if (size <= largestDatagram)
    {
        Zelkor::Discovery::TakeDatagram(data, static_cast<int>(size));
    }
    return 0;
}
