#pragma once

#include <Core/System/Threading/Semaphore.h>
#include <Discovery/Pipeline/DiscoveryMessageParser.h>

#include <functional>

namespace Zelkor::Discovery
{
/// Keeps each message, counts it, and does with it what the test says.
class FakeParser : public DiscoveryMessageParser
{
public:
    Tesmo::System::Threading::Semaphore entered{0, 1000}; ///< counts the messages
    std::vector<std::string> texts;
    std::string sender;
    std::function<void()> onMessage = [] {};

protected:
    void ProcessMessage(const Tesmo::System::String& text, const Tesmo::System::Net::IPAddress& address) override
    {
        texts.push_back(text.Utf8());
        sender = address.ToString().Utf8();
        entered.Release();
        onMessage();
    }
};
} // namespace Zelkor::Discovery
