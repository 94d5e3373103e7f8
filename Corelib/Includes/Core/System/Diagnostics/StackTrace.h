#pragma once

#include <Core/System/Collections/Generic/List.h>
#include <Core/System/Diagnostics/CallStack.h>
#include <Core/System/Diagnostics/StackFrame.h>
#include <Core/System/Object.h>
#include <Core/System/Sp.h>
#include <Core/System/String.h>

#include <cstdint>

namespace Tesmo::System::Diagnostics
{
/// The functions on the stack of the calling thread, the calling function first. Functions of delegates are left out.
/// Without symbols it has no frames.
class StackTrace : public Object
{
public:
    /// @param skipFrames    functions to leave out at the top
    /// @param needFileInfo  false: the methods alone
    /// @throws ArgumentOutOfRangeException  skipFrames is negative
    [[gnu::noinline]] StackTrace(int skipFrames, bool needFileInfo);

    /// Begins skipFrames functions below the last one whose text contains methodName, or at the calling function where
    /// there is none.
    /// @throws ArgumentNullException        methodName is null
    /// @throws ArgumentOutOfRangeException  skipFrames is negative
    [[gnu::noinline]] StackTrace(const String& methodName, int skipFrames, bool needFileInfo);

    /// The frames of a stack that was taken before.
    /// @throws ArgumentOutOfRangeException  skipFrames is negative
    StackTrace(const CallStack& callStack, int skipFrames, bool needFileInfo);

    /// 0 where there are no symbols.
    int GetFrameCount() const;

    /// A copy of the frame; empty where there is no such frame.
    Sp<StackFrame> GetFrame(int index) const;

    /// One line a frame: "   at method in file:line number".
    String ToString() const override;

private:
    void Take(const CallStack& callStack, std::int64_t skipFrames, bool needFileInfo);

    Collections::Generic::List<Sp<StackFrame>> frames;
};
} // namespace Tesmo::System::Diagnostics
