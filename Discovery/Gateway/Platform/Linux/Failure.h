#pragma once

#include "Command.h"

#include <optional>
#include <string>

namespace Zelkor::Discovery::Client::Platform
{

/// Whether a step failed, and why.
class [[nodiscard]] Failure
{
public:
    /// No failure.
    Failure() = default;

    /// @param text  the reason in words for an operator; its first line that isn't blank is kept, as 200 characters of
    ///              printable ASCII at most
    explicit Failure(const std::string& text);

    /// True after a failure.
    explicit operator bool() const
    {
        return reason.has_value();
    }

    /// One line of ASCII, empty without a failure.
    std::string Reason() const
    {
        return reason.value_or("");
    }

private:
    std::optional<std::string> reason;
};

/// What the end of a program means: no failure after exit code 0, else its name, its exit code and what it wrote.
Failure ProgramFailure(const std::string& program, const CommandResult& result);

/// What a result of the operating system means: no failure for 0, else a text and the words for that errno.
Failure SystemFailure(const std::string& text, int error);

} // namespace Zelkor::Discovery::Client::Platform
