#pragma once

#include <string>

namespace Tesmo::System::Diagnostics
{
/// One frame of a call stack, as its symbols tell it. Texts are UTF-8.
struct CallStackEntry
{
    std::string fileName;     ///< source file, as the compiler had it
    int lineNumber = 0;       ///< line in that file, counted from 1
    std::string methodName;   ///< with namespaces and parameters where the symbols have them
    int offsetFromSymbol = 0; ///< bytes from the start of the function
    int offsetFromLine = 0;   ///< bytes from the first instruction of the line; 0 where the symbols do not tell
};
} // namespace Tesmo::System::Diagnostics
