#include "LogicalLines.h"

#include <sstream>

namespace Zelkor::Discovery::Client::Platform
{

namespace
{

constexpr const char* Blanks = " \t\r";

std::string Trim(const std::string& text)
{
    const std::size_t begin = text.find_first_not_of(Blanks);
    return begin == std::string::npos ? "" : text.substr(begin, text.find_last_not_of(Blanks) - begin + 1);
}

} // namespace

std::vector<LogicalLine> SplitLines(const std::string& text)
{
    std::vector<LogicalLine> lines;
    std::istringstream stream(text);
    std::string part;
    bool continues = false;
    while (std::getline(stream, part))
    {
        if (!continues)
        {
            lines.emplace_back();
        }
        LogicalLine& line = lines.back();
        line.raw += part + "\n";
        line.text += part;
        continues = line.text.ends_with('\\') && !IsComment(line);
        line.text.resize(line.text.size() - (continues ? 1 : 0));
    }
    for (LogicalLine& line : lines)
    {
        line.text = Trim(line.text);
    }
    return lines;
}

std::string JoinLines(const std::vector<LogicalLine>& lines)
{
    std::string text;
    for (const LogicalLine& line : lines)
    {
        text += line.raw;
    }
    return text;
}

bool IsComment(const LogicalLine& line)
{
    const std::size_t begin = line.text.find_first_not_of(Blanks);
    return begin == std::string::npos || line.text[begin] == '#' || line.text[begin] == ';';
}

std::vector<std::string> SplitWords(const std::string& text)
{
    std::istringstream stream(text);
    std::vector<std::string> words;
    for (std::string word; stream >> word;)
    {
        words.push_back(word);
    }
    return words;
}

} // namespace Zelkor::Discovery::Client::Platform
