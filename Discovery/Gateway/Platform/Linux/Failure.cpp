#include "Failure.h"

#include <algorithm>
#include <cstring>

namespace Zelkor::Discovery::Client::Platform
{

namespace
{

constexpr std::size_t MaximumLength = 200; // characters of a reason

std::string OneLine(const std::string& text)
{
    const std::size_t begin = std::min(text.find_first_not_of(" \t\r\n"), text.size());
    std::string line = text.substr(begin, std::min(text.find_first_of("\r\n", begin) - begin, MaximumLength));
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c < ' ' || c > '~'; }, '?');
    return line;
}

} // namespace

Failure::Failure(const std::string& text) : reason(OneLine(text)) {}

Failure ProgramFailure(const std::string& program, const CommandResult& result)
{
    if (result.code == 0)
    {
        return {};
    }
    const std::string how = result.code < 0 ? " could not be started or took too long"
                                            : " ended with exit code " + std::to_string(result.code);
    const std::string output = OneLine(result.output);
    return Failure(program + how + (output.empty() ? "" : ": " + output));
}

Failure SystemFailure(const std::string& text, int error)
{
    return error == 0 ? Failure() : Failure(text + ": " + std::strerror(error));
}

} // namespace Zelkor::Discovery::Client::Platform
