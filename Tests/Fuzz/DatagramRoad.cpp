#include "DatagramRoad.h"

#include <Core/System/Exception.h>
#include <Discovery/Protocol/DiscoveryMessageDeserializer.h>
#include <Serialization.Json/JSONObject.h>

#include <algorithm>
#include <bit>
#include <stdexcept>
#include <vector>

namespace Zelkor::Discovery
{
using Serialization::Json::JSONObject;
using Tesmo::Sp, Tesmo::System::String;

bool TakeDatagram(const unsigned char* bytes, int size)
{
    constexpr std::size_t smallestBuffer = 2048; // bytes; the receiver's first one
    std::vector<unsigned char> buffer(std::max(smallestBuffer, std::bit_ceil(static_cast<std::size_t>(size))));
    std::copy_n(bytes, size, buffer.begin());
    Sp<DiscoveryMessage> message;
    try
    {
        const String text = String::FromLatin1(buffer.data(), static_cast<int>(buffer.size()));
        message = Sp<DiscoveryMessage>(DiscoveryMessageDeserializer().Deserialize(text));
    }
    catch (const Tesmo::System::Exception&)
    {
        return false;
    }
    const String written = message->ToJSON();
    if (!(JSONObject(written).ToString() == written))
    {
        throw std::logic_error("a message was written that does not read as it stands");
    }
    return true;
}
} // namespace Zelkor::Discovery

/// For the fuzzer, which gives no more than the largest datagram.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    Zelkor::Discovery::TakeDatagram(data, static_cast<int>(size));
    return 0;
}
