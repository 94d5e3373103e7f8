#include "DatagramRoad.h"

#include <Core/System/Exception.h>
#include <Discovery/Protocol/DiscoveryMessageDeserializer.h>
#include <Serialization.Json/JSONObject.h>

#include <algorithm>
#include <stdexcept>
#include <vector>

namespace Zelkor::Discovery
{
using Serialization::Json::JSONObject;
using Tesmo::Sp;
using Tesmo::System::Exception;
using Tesmo::System::String;

namespace
{
constexpr int SmallestBuffer = 2048; // bytes; the receiver's first one

String TextOf(const unsigned char* bytes, int size)
{
    int bufferSize = SmallestBuffer;
    while (bufferSize < size)
    {
        bufferSize *= 2;
    }
    std::vector<unsigned char> buffer(static_cast<std::size_t>(bufferSize));
    std::copy_n(bytes, size, buffer.begin());
    return String::FromLatin1(buffer.data(), bufferSize);
}

void CheckWritten(const DiscoveryMessage& message)
{
    const String text = message.ToJSON();
    if (!(JSONObject(text).ToString() == text))
    {
        throw std::logic_error("a message was written that does not read as it stands");
    }
}
} // namespace

bool TakeDatagram(const unsigned char* bytes, int size)
{
    Sp<DiscoveryMessage> message;
    try
    {
        message = Sp<DiscoveryMessage>(DiscoveryMessageDeserializer().Deserialize(TextOf(bytes, size)));
    }
    catch (const Exception&)
    {
        return false;
    }
    CheckWritten(*message);
    return true;
}
} // namespace Zelkor::Discovery
