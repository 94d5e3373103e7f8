#include <Core/System/Diagnostics/StackFrame.h>

#include <Core/System/ArgumentOutOfRangeException.h>
#include <Core/System/Diagnostics/StackTrace.h>

#include <string>

namespace Tesmo::System::Diagnostics
{
StackFrame::StackFrame(int skipFrames, bool needFileInfo)
{
    const CallStack callStack(0);
    const Sp<StackFrame> frame = StackTrace(callStack, skipFrames, needFileInfo).GetFrame(0);
    if (frame != null)
    {
        *this = *frame;
    }
}

StackFrame::StackFrame(const CallStackEntry& entry, bool needFileInfo) : methodName(entry.methodName)
{
    if (needFileInfo)
    {
        fileName = String(entry.fileName);
        column = entry.offsetFromLine;
        lineNumber = entry.lineNumber;
        offset = entry.offsetFromSymbol;
    }
}

const String& StackFrame::GetFileName() const
{
    return fileName;
}

int StackFrame::GetFileLineNumber() const
{
    return lineNumber;
}

int StackFrame::GetFileColumnNumber() const
{
    return column;
}

const String& StackFrame::GetMethod() const
{
    return methodName;
}

int StackFrame::GetOffset() const
{
    return offset;
}

String StackFrame::ToString() const
{
    const bool hasFile = !fileName.IsEmpty();
    std::string text = methodName.IsEmpty() ? "<unknown method>" : methodName.Utf8();
    text += " at " + (hasFile ? std::to_string(offset) : "<unknown offset>");
    text += "  in file:line:column " + (hasFile ? fileName.Utf8() : "<filename unknown>");
    text += " : " + std::to_string(lineNumber) + " : " + std::to_string(column);
    return String(std::move(text));
}
} // namespace Tesmo::System::Diagnostics
