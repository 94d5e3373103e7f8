#pragma once

#include <string>
#include <vector>

namespace Zelkor::Discovery::Client::Platform
{

/// A line of a configuration file, joined with the next one if it ends with a backslash.
struct LogicalLine
{
    std::string raw;  ///< as in the file, with all its line ends
    std::string text; ///< what it says, without blanks around it
};

/// Splits a text into lines; the last one gets a line end if it has none. A comment (of '#' or ';') is never continued.
std::vector<LogicalLine> SplitLines(const std::string& text);

/// The text of a file that consists of these lines.
std::string JoinLines(const std::vector<LogicalLine>& lines);

/// Whether a line says nothing: it is a comment, or blank.
bool IsComment(const LogicalLine& line);

/// The words of a text, between blanks.
std::vector<std::string> SplitWords(const std::string& text);

} // namespace Zelkor::Discovery::Client::Platform
