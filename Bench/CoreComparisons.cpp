#include "Benchmarks.h"
#include "RatioReporter.h"

#include <Core/System/InvalidOperationException.h>
#include <Core/System/Object.h>
#include <Core/System/String.h>
#include <Core/System/Threading/Lock.h>

#include <cstdio>
#include <cstring>
#include <exception>
#include <mutex>

namespace Bench
{
namespace
{
using namespace Tesmo::System;

/// The buffer of a received request: JSON text, then zeros up to the receiver's first buffer size of 2048 bytes.
const unsigned char* Datagram()
{
    static unsigned char buffer[2048] =
        R"({"DiscoveryMessageType":"AllSendYourSignature","DiscoveryVersion":"1.0.23","Broadcast":"True"})";
    return buffer;
}

void CompareText()
{
    Compare(
        "Text of a 2048-byte datagram", 0,
        [](benchmark::State& state)
        {
            for (auto _ : state)
            {
                benchmark::DoNotOptimize(String::FromLatin1(Datagram(), 2048));
            }
        },
        [](benchmark::State& state)
        {
            for (auto _ : state)
            {
                benchmark::DoNotOptimize(std::string(reinterpret_cast<const char*>(Datagram()), 2048));
            }
        });
}

void CompareFormat()
{
    Compare(
        "String::Format of a log line", 0,
        [](benchmark::State& state)
        {
            const String format("{0}:{1,8} [0x{2:X8}]");
            const String name("receiver");
            int number = 0;
            for (auto _ : state)
            {
                benchmark::DoNotOptimize(String::Format(format, name, number, number));
                ++number;
            }
        },
        [](benchmark::State& state)
        {
            int number = 0;
            for (auto _ : state)
            {
                char text[64];
                std::snprintf(text, sizeof(text), "%s:%8d [0x%08X]", "receiver", number, static_cast<unsigned>(number));
                benchmark::DoNotOptimize(std::string(text));
                ++number;
            }
        });
}

template <class Failure>
[[gnu::noinline]] void Throw(const Failure& failure)
{
    throw failure;
}

void CompareExceptions()
{
    Compare(
        "Exception thrown and caught", 10,
        [](benchmark::State& state)
        {
            for (auto _ : state)
            {
                try
                {
                    Throw(InvalidOperationException(ThrowSite));
                }
                catch (const Exception& failure)
                {
                    benchmark::DoNotOptimize(&failure);
                }
            }
        },
        [](benchmark::State& state)
        {
            for (auto _ : state)
            {
                try
                {
                    Throw(std::exception());
                }
                catch (const std::exception& failure)
                {
                    benchmark::DoNotOptimize(&failure);
                }
            }
        });
}

void CompareLocks()
{
    Compare(
        "Lock taken and released", 0,
        [](benchmark::State& state)
        {
            const Object target;
            for (auto _ : state)
            {
                const Threading::Lock lock(target);
                benchmark::ClobberMemory();
            }
        },
        [](benchmark::State& state)
        {
            std::recursive_mutex mutex;
            for (auto _ : state)
            {
                const std::lock_guard lock(mutex);
                benchmark::ClobberMemory();
            }
        });
}
} // namespace

void AddCoreComparisons()
{
    CompareText();
    CompareFormat();
    CompareExceptions();
    CompareLocks();
}
} // namespace Bench
