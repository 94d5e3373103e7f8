#pragma once

#include <Service/Platform/ServiceControl.h>
#include <functional>
#include <string>
#include <vector>

/// The control manager of these tests: it runs the service on the calling thread and keeps what is reported to it.
struct ServiceControlFake
{
    bool refusesHandler = false;
    int eventError = 0;
    int reportError = 0;
    std::function<void()> onReport = [] {};   ///< runs within each report
    std::function<void()> whileWaits = [] {}; ///< runs while the service waits for its stop event

    void (*handler)(std::uint32_t) = nullptr;
    std::vector<std::vector<std::uint32_t>> reports; ///< the fields in their order
    std::vector<std::string> debugTexts;
    int stopEventSet = 0;
    bool stopEventClosed = false;
};

/// The one of the running test.
extern ServiceControlFake control;

/// The folder of the maker's logs in the running test.
extern std::string logRoot;
