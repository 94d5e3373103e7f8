#pragma once

#include <Core/System/Object.h>
#include <Core/System/Sp.h>
#include <Core/System/String.h>
#include <Core/System/ThrowSite.h>

#include <atomic>
#include <exception>

namespace Tesmo::System
{
namespace Diagnostics
{
class CallStack;
}

/// Root of all failures: a message, the place of the throw, and the stack at that moment. Catch by reference and keep it
/// on one thread; between threads it travels as a copy. Every throw names its place: `throw X(ThrowSite)`.
class Exception : public Object, public std::exception
{
public:
    /// The class's default message; the place is the library's own.
    [[nodiscard, gnu::noinline]] Exception();
    [[nodiscard, gnu::noinline]] Exception(const String& message);
    [[nodiscard, gnu::noinline]] Exception(const String& file, int line);
    [[nodiscard, gnu::noinline]] Exception(const String& message, const String& file, int line);
    /// @param inner  not owned; null for none
    [[nodiscard, gnu::noinline]] Exception(const String& message, const Exception& inner, const String& file, int line);
    /// Takes all fields and shares the stack of the original.
    [[nodiscard]] Exception(const Exception& other);
    Exception& operator=(const Exception& other);

    /// Equal class, code, message, place and inner exception; false for null.
    bool Equals(const Object& other) const override;

    /// The report: class, message, place of the throw, and the stack where symbols are at hand.
    String ToString() const override;

    ~Exception() override;

    /// The message text; the class's default message where none was given.
    String Message() const;
    /// The exception that this one was made for; null if none.
    const Exception& InnerException() const;
    const String& HelpLink() const; ///< always empty in this program
    const String& File() const;     ///< source path of the throw, as the compiler delivered it
    int Line() const;               ///< source line of the throw
    int ErrorCode() const;          ///< 0 unless a subclass sets it

    /// ToString() as UTF-8. It allocates; the pointer holds until the next call or the exception's end.
    const char* what() const noexcept override;

    /// True from the start: exceptions keep the stack of their throw.
    static std::atomic<bool> StackTraceEnabled;

protected:
    /// The text where no message was given.
    virtual String DefaultMessage() const;

    void ErrorCode(int value);

private:
    [[gnu::noinline]] static Sp<Diagnostics::CallStack> TakeStack() noexcept;

    mutable String messageText; ///< empty until the first report: the class's default message
    String helpLink;
    String throwFile;
    int throwLine;
    const Exception* innerException;
    int errorCode = 0;
    Sp<Diagnostics::CallStack> callStack; ///< empty where none was taken
    mutable String whatText;
};
} // namespace Tesmo::System
