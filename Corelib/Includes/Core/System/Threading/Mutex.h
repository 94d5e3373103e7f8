#pragma once

#include <Core/System/Threading/WaitHandle.h>

namespace Tesmo::System::Threading
{
/// A lock that one thread owns, as often as it has waited for it, and releases as often.
class Mutex : public WaitHandle
{
public:
    /// Without a name, for the threads of this process; owned by nobody unless the caller is to own it at once.
    Mutex();
    explicit Mutex(bool initiallyOwned);
    /// A named mutex that exists already is not owned by the caller, whatever initiallyOwned says.
    /// @throws ArgumentNullException  name is null
    /// @throws ArgumentException      name is longer than 128 bytes
    /// @throws IOException            the name belongs to another kind of object, or the system refused
    Mutex(bool initiallyOwned, const String& name);
    /// @param createdNew  receives whether the mutex is new
    Mutex(bool initiallyOwned, const String& name, bool& createdNew);

    /// @throws ArgumentNullException  name is null or empty
    /// @throws IOException            there is no mutex of that name
    static Mutex OpenExisting(const String& name);

    /// Gives up one ownership.
    /// @throws IOException           the mutex is closed
    /// @throws ApplicationException  the calling thread does not own it
    void ReleaseMutex();

protected:
    bool Signal() override;
    bool Wait(int milliseconds) override;

private:
    explicit Mutex(std::nullptr_t) {}
    Platform::WaitObject& Native() const;
};
} // namespace Tesmo::System::Threading
