#include <Core/System/Exception.h>

#include <Core/System/Diagnostics/CallStack.h>
#include <Core/System/Diagnostics/StackTrace.h>
#include <Core/System/Environment.h>
#include <Core/System/Type.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <string>
#include <typeinfo>
#include <utility>
#include <vector>

namespace Tesmo::System
{
namespace
{
constexpr const char* LibraryFile = __FILE__; ///< the place of an exception that was made without one
constexpr int LineWithoutArguments = 10;
constexpr int LineWithMessage = 31;

String TextOrEmpty(const String& text)
{
    return IsNull(text) ? String() : text;
}

std::string Place(const std::string& file, int line)
{
    return " in " + file + ":" + std::to_string(line) + Environment::NewLine().Utf8();
}

/// "   at method [0xoffset]"
std::string Function(const Diagnostics::StackFrame& frame)
{
    char offset[16];
    std::snprintf(offset, sizeof offset, " [0x%08X]", static_cast<unsigned>(frame.GetOffset()));
    return "   at " + frame.GetMethod().Utf8() + offset;
}

/// The lines of a report: the throw site under the name of the top frame, then every frame at its own place.
std::vector<std::string> StackLines(const Diagnostics::CallStack& callStack, const std::string& throwPlace)
{
    const Diagnostics::StackTrace trace(callStack, 1, true); // 1: the constructor of Exception
    std::vector<std::string> lines;
    for (int i = 0; i < trace.GetFrameCount(); i++)
    {
        const Sp<Diagnostics::StackFrame> frame = trace.GetFrame(i);
        const std::string function = Function(*frame);
        if (i == 0)
        {
            lines.push_back(function + throwPlace);
        }
        lines.push_back(function + Place(frame->GetFileName().Utf8(), frame->GetFileLineNumber()));
    }
    return lines;
}

/// The lines after the last one that names the type, because its constructor is of no interest. The first of them gets
/// the place of the throw. Empty where no line is left (decision 70).
std::string StackText(const std::vector<std::string>& lines, const std::string& typeName, const std::string& throwPlace)
{
    const auto namesType = [&typeName](const std::string& line) { return line.find(typeName) != std::string::npos; };
    const auto first = std::find_if(lines.rbegin(), lines.rend(), namesType).base();
    if (first == lines.end())
    {
        return {};
    }
    std::string text = first->substr(0, first->find(" in ")) + throwPlace;
    std::for_each(first + 1, lines.end(), [&text](const std::string& line) { text += line; });
    return text;
}
} // namespace

std::atomic<bool> Exception::StackTraceEnabled = true;

Exception::Exception()
    : throwFile(LibraryFile),
      throwLine(LineWithoutArguments),
      innerException(nullptr),
      callStack(TakeStack())
{
}

Exception::Exception(const String& message)
    : messageText(TextOrEmpty(message)),
      throwFile(LibraryFile),
      throwLine(LineWithMessage),
      innerException(nullptr),
      callStack(TakeStack())
{
}

Exception::Exception(const String& file, int line)
    : throwFile(TextOrEmpty(file)),
      throwLine(line),
      innerException(nullptr),
      callStack(TakeStack())
{
}

Exception::Exception(const String& message, const String& file, int line)
    : messageText(TextOrEmpty(message)),
      throwFile(TextOrEmpty(file)),
      throwLine(line),
      innerException(nullptr),
      callStack(TakeStack())
{
}

Exception::Exception(const String& message, const Exception& inner, const String& file, int line)
    : messageText(TextOrEmpty(message)),
      throwFile(TextOrEmpty(file)),
      throwLine(line),
      innerException(IsNull(inner) ? nullptr : &inner),
      callStack(TakeStack())
{
}

Exception::Exception(const Exception&) = default;
Exception& Exception::operator=(const Exception&) = default;
Exception::~Exception() = default;

Sp<Diagnostics::CallStack> Exception::TakeStack() noexcept
{
    if (!StackTraceEnabled.load(std::memory_order_relaxed))
    {
        return {};
    }
    try
    {
        return Sp<Diagnostics::CallStack>(new Diagnostics::CallStack(0));
    }
    catch (const std::exception&) // out of memory: an exception without a stack is better than none
    {
        return {};
    }
}

bool Exception::Equals(const Object& other) const
{
    if (IsNull(other) || typeid(*this) != typeid(other))
    {
        return false;
    }
    const auto& same = static_cast<const Exception&>(other);
    return errorCode == same.errorCode && messageText == same.messageText && throwFile == same.throwFile &&
           throwLine == same.throwLine && innerException == same.innerException;
}

String Exception::ToString() const
{
    const std::string typeName = GetType().ToString().Utf8();
    const std::string throwPlace = Place(throwFile.Utf8(), throwLine);
    std::string stackText;
    if (callStack != null)
    {
        stackText = StackText(StackLines(*callStack, throwPlace), typeName, throwPlace);
    }
    if (stackText.empty())
    {
        stackText = "  " + throwPlace;
    }
    if (messageText.IsEmpty())
    {
        messageText = DefaultMessage(); // from the first report on, Equals compares this text
    }
    return String(typeName + ": " + messageText.Utf8() + Environment::NewLine().Utf8() + stackText);
}

String Exception::Message() const
{
    return messageText.IsEmpty() ? DefaultMessage() : messageText;
}

const Exception& Exception::InnerException() const
{
    return innerException == nullptr ? static_cast<const Exception&>(null) : *innerException;
}

const String& Exception::HelpLink() const
{
    return helpLink;
}

const String& Exception::File() const
{
    return throwFile;
}

int Exception::Line() const
{
    return throwLine;
}

int Exception::ErrorCode() const
{
    return errorCode;
}

void Exception::ErrorCode(int value)
{
    errorCode = value;
}

const char* Exception::what() const noexcept
{
    try
    {
        whatText = ToString();
        return whatText.Utf8().c_str();
    }
    catch (const std::exception&) // no memory for the report
    {
        return "Tesmo::System::Exception";
    }
}

String Exception::DefaultMessage() const
{
    return "Exception of type '" + GetType().ToString() + "' was throw.";
}
} // namespace Tesmo::System
