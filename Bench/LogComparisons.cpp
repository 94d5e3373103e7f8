#include "Benchmarks.h"
#include "RatioReporter.h"

#include <Core/LogStream/LogStream.h>
#include <Tests/Support/TemporaryFolder.h>

#include <cstdio>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <unistd.h>

namespace Bench
{
namespace
{
using namespace Tesmo::System;
using namespace Tesmo::System::LogStreams;

constexpr std::string_view row = "|14/11/2026 12:43:07.123.000|0x08DF424CD52B4430|"
                                 "ClientDataGateway                       |S|           |"
                                 "No IP configuration to update on this Client.|\r\n";
constexpr int maxFileSize = 0x500000; ///< bytes, as that of a log stream in characters
constexpr int headerSize = 2350;      ///< bytes of a file's header

int OpenEmpty(const String& path)
{
    return open(path.Utf8().c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
}

/// Fails the run when the bytes did not all get to the file.
void WriteAll(benchmark::State& state, int file, std::string_view bytes)
{
    if (write(file, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()))
    {
        state.SkipWithError("short write");
    }
}

void WriteRows(benchmark::State& state, int sizeLimit)
{
    const TemporaryFolder folder;
    LogStream log(folder.Path("c.log"));
    log.BackupCount(3);
    log.MaxFileSize(sizeLimit);
    const LogStreamChannel channel("ClientDataGateway");
    const String message("No IP configuration to update on this Client.");
    for (auto _ : state)
    {
        log.Write(channel, LogStreamLevel::Standard, message);
    }
}

void CompareRows()
{
    Compare(
        "Log row in a file", 3, [](benchmark::State& state) { WriteRows(state, maxFileSize); },
        [](benchmark::State& state)
        {
            const TemporaryFolder folder;
            const int file = OpenEmpty(folder.Path("c.log"));
            off_t size = 0;
            for (auto _ : state)
            {
                WriteAll(state, file, row);
                size += static_cast<off_t>(row.size());
                if (size > maxFileSize) // the disk shall not fill up: as seldom as the product splits
                {
                    size = lseek(file, 0, SEEK_SET);
                }
            }
            close(file);
        });
}

void CompareSplits()
{
    Compare(
        "Log row that splits the file", 0, [](benchmark::State& state) { WriteRows(state, 0); },
        [](benchmark::State& state)
        {
            const TemporaryFolder folder;
            const String names[] = {folder.Path("c.log"), folder.Path("c.bak"), folder.Path("c.bak1"),
                                    folder.Path("c.bak2")};
            const std::string header(headerSize, ' ');
            int file = OpenEmpty(names[0]);
            for (auto _ : state)
            {
                WriteAll(state, file, row);
                close(file);
                for (int number = 2; number >= 0; --number) // the oldest one is overwritten
                {
                    std::rename(names[number].Utf8().c_str(), names[number + 1].Utf8().c_str());
                }
                file = OpenEmpty(names[0]);
                WriteAll(state, file, header);
            }
            close(file);
        });
}
} // namespace

void AddLogComparisons()
{
    CompareRows();
    CompareSplits();
}
} // namespace Bench
