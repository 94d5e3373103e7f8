#pragma once

#include <string>
#include <vector>

namespace Zelkor::Discovery::Client::Platform
{

/// A line of a configuration file that may be continued: a backslash at its end joins the next one to it.
struct LogicalLine
{
    std::string raw;  ///< as it stands in the file, with every line end
    std::string text; ///< joined, without blanks around it
};

/// Cuts a text into lines; the last one gets a line end if it has none. Comments (begun by '#' or ';') don't continue.
std::vector<LogicalLine> SplitLines(const std::string& text);

std::string JoinLines(const std::vector<LogicalLine>& lines);

/// True for a line that says nothing: a comment or blanks.
bool IsComment(const LogicalLine& line);

/// The words of a text, parted by blanks.
std::vector<std::string> SplitWords(const std::string& text);

} // namespace Zelkor::Discovery::Client::Platform
