#pragma once

namespace Tesmo::System
{
/// The file and line of a call: the last parameter, with Here() as its default, of an operation that throws in the name
/// of its caller. A log row has nothing else to say where.
struct CallSite
{
    const char* file;
    int line;

    /// The place of the call that leaves this argument out.
    static constexpr CallSite Here(const char* callerFile = __builtin_FILE(), int callerLine = __builtin_LINE())
    {
        return {callerFile, callerLine};
    }
};
} // namespace Tesmo::System
