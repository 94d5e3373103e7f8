#pragma once

#include <string>
#include <string_view>

namespace Zelkor::Serialization::Json
{
/// One walk over the text of a container before cJSON sees it. It ends where the container ends, refuses what cJSON
/// 1.7 wrongly accepts, and rewrites what cJSON wrongly refuses or misreads. It does not judge the grammar.
class JSONTextScanner
{
public:
    explicit JSONTextScanner(const std::string& text);

    /// @param opening  '{' or '[', the first character after white space
    /// @returns false for text that is refused
    bool Scan(char opening);

    /// The container with the white space before it: a part of the text itself, or the rewritten one. Valid while both
    /// the text and the scanner live.
    std::string_view Result() const;

private:
    bool ScanToken();
    bool ScanString();
    bool ScanEscape();
    bool ScanUnicodeEscape();
    bool ScanNumber();
    void Replace(int length, std::string_view replacement);

    const char* cursor;  ///< the text ends with a zero byte
    const char* pending; ///< start of what is not yet in rewritten
    std::string rewritten;
    bool isRewritten = false;
    int depth = 0;
};
} // namespace Zelkor::Serialization::Json
