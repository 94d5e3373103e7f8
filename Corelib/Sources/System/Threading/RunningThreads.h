#pragma once

#include "ThreadData.h"

#include <map>
#include <mutex>

namespace Tesmo::System::Threading
{
/// The records of the main thread and of all threads that run, by native identifier.
struct RunningThreads
{
    /// Never destroyed: threads may still run while the process ends.
    static RunningThreads& Instance()
    {
        static RunningThreads& instance = *new RunningThreads;
        return instance;
    }

    std::mutex mutex;
    std::map<long long, Sp<Thread::ThreadData>> records;
};
} // namespace Tesmo::System::Threading
