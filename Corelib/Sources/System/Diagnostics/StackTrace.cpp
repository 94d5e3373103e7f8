#include <Core/System/Diagnostics/StackTrace.h>

#include <Core/System/ArgumentNullException.h>
#include <Core/System/ArgumentOutOfRangeException.h>
#include <Core/System/Checks.h>
#include <Core/System/Environment.h>

#include <cstddef>
#include <iterator>
#include <string>
#include <utility>

namespace Tesmo::System::Diagnostics
{
namespace
{
bool IsDelegatePlumbing(const std::string& method)
{
    return method.find("Tesmo::Fp<") != std::string::npos || method.find("System::Delegate<") != std::string::npos;
}

/// The index of the last visible entry whose method contains the text; 0 where there is none.
std::int64_t LastWith(const std::string& text, const CallStack& callStack)
{
    const auto& entries = callStack.Entries();
    std::int64_t last = 0;
    for (std::int64_t i = CallStack::HiddenEntries; i < std::ssize(entries); i++)
    {
        if (entries[static_cast<std::size_t>(i)].methodName.find(text) != std::string::npos)
        {
            last = i - CallStack::HiddenEntries;
        }
    }
    return last;
}
} // namespace

StackTrace::StackTrace(int skipFrames, bool needFileInfo)
{
    NotNegative(skipFrames);
    Take(CallStack(0), skipFrames, needFileInfo);
}

StackTrace::StackTrace(const String& methodName, int skipFrames, bool needFileInfo)
{
    NotNull(methodName);
    NotNegative(skipFrames);
    const CallStack callStack(0);
    Take(callStack, skipFrames + LastWith(methodName.Utf8(), callStack), needFileInfo);
}

StackTrace::StackTrace(const CallStack& callStack, int skipFrames, bool needFileInfo)
{
    NotNegative(skipFrames);
    Take(callStack, skipFrames, needFileInfo);
}

void StackTrace::Take(const CallStack& callStack, std::int64_t skipFrames, bool needFileInfo)
{
    const auto& entries = callStack.Entries();
    for (std::int64_t i = CallStack::HiddenEntries + skipFrames; i < std::ssize(entries); i++)
    {
        const CallStackEntry& entry = entries[static_cast<std::size_t>(i)];
        if (!IsDelegatePlumbing(entry.methodName))
        {
            frames.Add(Sp<StackFrame>(new StackFrame(entry, needFileInfo)));
        }
    }
}

int StackTrace::GetFrameCount() const
{
    return frames.Count();
}

Sp<StackFrame> StackTrace::GetFrame(int index) const
{
    if (index < 0 || index >= frames.Count())
    {
        return {};
    }
    return Sp<StackFrame>(new StackFrame(*frames[index]));
}

String StackTrace::ToString() const
{
    std::string text;
    for (const Sp<StackFrame>& frame : frames)
    {
        text += "   at " + frame->GetMethod().Utf8();
        if (!frame->GetFileName().IsEmpty())
        {
            text += " in " + frame->GetFileName().Utf8() + ":line " + std::to_string(frame->GetFileLineNumber());
        }
        text += Environment::NewLine().Utf8();
    }
    return String(std::move(text));
}
} // namespace Tesmo::System::Diagnostics
