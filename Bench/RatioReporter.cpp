#include "RatioReporter.h"

#include <cstdio>

namespace Bench
{
namespace
{
std::map<std::string, double>& Aims()
{
    static std::map<std::string, double> aims;
    return aims;
}
} // namespace

void RatioReporter::SetAim(const std::string& subject, double aim)
{
    Aims()[subject] = aim;
}

void RatioReporter::ReportRuns(const std::vector<Run>& runs)
{
    ConsoleReporter::ReportRuns(runs);
    for (const Run& run : runs)
    {
        const std::string name = run.run_name.function_name;
        const std::size_t slash = name.rfind('/');
        if (run.run_type != Run::RT_Iteration || run.error_occurred || slash == std::string::npos)
        {
            continue;
        }
        const std::string subject = name.substr(0, slash);
        if (nanoseconds[subject].empty())
        {
            subjects.push_back(subject);
        }
        nanoseconds[subject][name.substr(slash + 1)] = run.real_accumulated_time / double(run.iterations) * 1e9;
    }
}

void RatioReporter::Finalize()
{
    std::printf("\n%-44s %12s %12s %8s %6s\n", "subject", "product ns", "limit ns", "ratio", "aim");
    for (const std::string& subject : subjects)
    {
        const double product = nanoseconds[subject]["product"];
        const double limit = nanoseconds[subject]["limit"];
        const double aim = Aims()[subject];
        std::printf("%-44s %12.0f %12.0f %8.2f %6s\n", subject.c_str(), product, limit,
                    limit > 0 ? product / limit : 0.0, aim > 0 ? std::to_string(aim).substr(0, 4).c_str() : "-");
    }
}
} // namespace Bench
