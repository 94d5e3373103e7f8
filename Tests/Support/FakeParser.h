#pragma once

#include <Core/System/FormatException.h>
#include <Core/System/Threading/EventWaitHandle.h>
#include <Core/System/Threading/Semaphore.h>
#include <Discovery/Client/DiscoveryMessageParser.h>

namespace Zelkor::Discovery
{
/// Keeps each message, waits until the test lets it go on, and throws what the text names.
class FakeParser : public DiscoveryMessageParser
{
public:
    Tesmo::System::Threading::Semaphore entered{0, 1000}; ///< counts the messages
    Tesmo::System::Threading::EventWaitHandle goOn{true, Tesmo::System::Threading::EventResetMode::ManualReset};
    std::vector<std::string> texts;
    std::string sender;

protected:
    void ProcessMessage(const Tesmo::System::String& text, const Tesmo::System::Net::IPAddress& address) override
    {
        texts.push_back(text.Utf8());
        sender = address.ToString().Utf8();
        entered.Release();
        goOn.WaitOne();
        if (text == "format")
        {
            throw Tesmo::System::FormatException(ThrowSite);
        }
        if (text == "other")
        {
            throw Tesmo::System::Exception(ThrowSite);
        }
        if (text == "standard")
        {
            throw std::runtime_error("no Exception of the library");
        }
    }
};
} // namespace Zelkor::Discovery
