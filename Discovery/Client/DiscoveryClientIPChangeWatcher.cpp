#include "DiscoveryClientIPChangeWatcher.h"

#include "Required.h"

#include <Discovery/Protocol/DiscoveryLogger.h>

namespace Zelkor::Discovery::Client
{
using Tesmo::Sp;
using Tesmo::System::EventArgs;
using Tesmo::System::Exception;
using Tesmo::System::Object;
using Tesmo::System::LogStreams::LogStreamLevel;
using Tesmo::System::Threading::ParameterizedThreadStart;
using Tesmo::System::Threading::Thread;

DiscoveryClientIPChangeWatcher::DiscoveryClientIPChangeWatcher(const Sp<IDiscoveryClientDataGateway>& givenGateway)
    : thread(new Thread(ParameterizedThreadStart(ThreadMain))),
      gateway(Required(givenGateway)),
      channel("IPChangeWatcher")
{
    thread->Name(channel.ToString());
}

DiscoveryClientIPChangeWatcher::~DiscoveryClientIPChangeWatcher()
{
    if (!thread->IsAlive())
    {
        return;
    }
    stopRequested = true;
    try
    {
        gateway->CancelWaitForIPChange();
    }
    catch (const std::exception&) // the wait then lasts until the next change of an address, as in Stop
    {
    }
    thread->Join();
}

void DiscoveryClientIPChangeWatcher::Start()
{
    thread->Start(*this);
}

void DiscoveryClientIPChangeWatcher::Stop()
{
    DiscoveryLogger& log = DiscoveryLogger::Instance();
    log.Write(channel, "Stopping IPChangeWatcher", LogStreamLevel::Critical);
    stopRequested = true;
    try
    {
        gateway->CancelWaitForIPChange();
    }
    catch (const Exception& failure)
    {
        log.Write(channel, "Exception caught during call to IDiscoveryClientDataGateway::CancelWaitForIPChange !",
                  failure);
    }
    thread->Join();
    log.Write(channel, "---IPChangeWatcher stopped---", LogStreamLevel::Critical);
}

void DiscoveryClientIPChangeWatcher::ThreadMain(Object& watcher)
{
    dynamic_cast<DiscoveryClientIPChangeWatcher&>(watcher).Run();
}

void DiscoveryClientIPChangeWatcher::Run()
{
    DiscoveryLogger& log = DiscoveryLogger::Instance();
    log.Write(channel, "---Waiting for IP changes...", LogStreamLevel::Critical);
    bool hasChanged = false;
    while (!stopRequested && WaitForChange(hasChanged))
    {
        if (hasChanged && !stopRequested) // a cancelled wait looks like a change
        {
            log.Write(channel, "IP change detected ! Triggering action...", LogStreamLevel::Standard);
            IPChanged.Invoke(*this, EventArgs());
        }
    }
}

/// False where the gateway fails, which ends the watcher until the client's next restart.
bool DiscoveryClientIPChangeWatcher::WaitForChange(bool& hasChanged)
{
    try
    {
        hasChanged = gateway->RunIPChangeWatcher();
        return true;
    }
    catch (const Exception& failure)
    {
        DiscoveryLogger::Instance().Write(
            channel, "Aborting : Exception caught in IDiscoveryClientDataGateway::RunIPChangeWatcher !", failure);
        return false;
    }
}
} // namespace Zelkor::Discovery::Client
