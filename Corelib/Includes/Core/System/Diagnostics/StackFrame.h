#pragma once

#include <Core/System/Diagnostics/CallStackEntry.h>
#include <Core/System/Object.h>
#include <Core/System/String.h>

namespace Tesmo::System::Diagnostics
{
/// One function on a stack. What is not known is an empty text or 0.
class StackFrame : public Object
{
public:
    /// The calling function, or the one that stands skipFrames above it.
    /// @throws ArgumentOutOfRangeException  skipFrames is negative
    [[gnu::noinline]] StackFrame(int skipFrames, bool needFileInfo);

    /// @param needFileInfo  false: the method alone
    StackFrame(const CallStackEntry& entry, bool needFileInfo);

    const String& GetFileName() const; ///< as the compiler was given it; empty without file information
    int GetFileLineNumber() const;     ///< from 1
    int GetFileColumnNumber() const;   ///< bytes from the first instruction of the line
    const String& GetMethod() const;   ///< with its parameters, as the symbols have it
    int GetOffset() const;             ///< bytes from the start of the function

    /// "method at offset  in file:line:column file : line : column"
    String ToString() const override;

private:
    String fileName;
    int column = 0;
    int lineNumber = 0;
    String methodName;
    int offset = 0;
};
} // namespace Tesmo::System::Diagnostics
