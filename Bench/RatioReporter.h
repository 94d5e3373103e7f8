#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <vector>

namespace Bench
{
/// Registers two benchmarks of one subject that are run one after the other: the product's road, and its limit, which is
/// the bare library or system call that does the least that must be done.
/// @param aim  how many times the limit the product's road may take; 0 where no aim is set
template <class Product, class Limit>
void Compare(const std::string& subject, double aim, Product product, Limit limit);

/// Prints each run as usual, and at the end a line for each subject: both times, the ratio and the aim.
class RatioReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run>& runs) override;
    void Finalize() override;

    static void SetAim(const std::string& subject, double aim);

private:
    std::map<std::string, std::map<std::string, double>> nanoseconds; ///< by subject, then "product" or "limit"
    std::vector<std::string> subjects;                                ///< in the order of the runs
};

template <class Product, class Limit>
void Compare(const std::string& subject, double aim, Product product, Limit limit)
{
    RatioReporter::SetAim(subject, aim);
    benchmark::RegisterBenchmark((subject + "/product").c_str(), product)->UseRealTime();
    benchmark::RegisterBenchmark((subject + "/limit").c_str(), limit)->UseRealTime();
}
} // namespace Bench
