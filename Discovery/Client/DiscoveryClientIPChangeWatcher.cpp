#include "DiscoveryClientIPChangeWatcher.h"

#include <Discovery/Pipeline/Required.h>

namespace Zelkor::Discovery::Client
{
using Tesmo::Sp, Tesmo::System::EventArgs, Tesmo::System::Exception, Tesmo::System::Threading::ParameterizedThreadStart,
    Tesmo::System::Threading::Thread;

DiscoveryClientIPChangeWatcher::DiscoveryClientIPChangeWatcher(const Sp<IDiscoveryClientDataGateway>& host)
    : thread(new Thread(ParameterizedThreadStart(ThreadMain))),
      gateway(Required(host)),
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
    channel.Critical("Stopping IPChangeWatcher");
    stopRequested = true;
    try
    {
        gateway->CancelWaitForIPChange();
    }
    catch (const Exception& failure)
    {
        channel.Critical("Exception caught during call to IDiscoveryClientDataGateway::CancelWaitForIPChange !",
                         failure);
    }
    thread->Join();
    channel.Critical("---IPChangeWatcher stopped---");
}

void DiscoveryClientIPChangeWatcher::ThreadMain(Object& watcher)
{
    dynamic_cast<DiscoveryClientIPChangeWatcher&>(watcher).Run();
}

void DiscoveryClientIPChangeWatcher::Run()
{
    channel.Critical("---Waiting for IP changes...");
    bool hasChanged = false;
    while (!stopRequested && TryWaitForChange(hasChanged))
    {
        if (hasChanged && !stopRequested) // a cancelled wait looks like a change
        {
            channel.Standard("IP change detected ! Triggering action...");
            IPChanged.Invoke(*this, EventArgs());
        }
    }
}

/// False where the gateway fails, which ends the watcher until the client's next restart.
bool DiscoveryClientIPChangeWatcher::TryWaitForChange(bool& hasChanged)
{
    try
    {
        hasChanged = gateway->RunIPChangeWatcher();
        return true;
    }
    catch (const Exception& failure)
    {
        channel.Critical("Aborting : Exception caught in IDiscoveryClientDataGateway::RunIPChangeWatcher !", failure);
        return false;
    }
}
} // namespace Zelkor::Discovery::Client
