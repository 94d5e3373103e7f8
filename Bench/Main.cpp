#include "Benchmarks.h"
#include "RatioReporter.h"

/// Runs every benchmark, or those that --benchmark_filter names.
int main(int count, char** arguments)
{
    Bench::AddCoreComparisons();
    Bench::AddLogComparisons();
    Bench::AddProtocolComparisons();
    Bench::AddReceiveComparisons();
    Bench::AddHostComparisons();
    Bench::AddIdleClient();
    benchmark::Initialize(&count, arguments);
    Bench::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}
