#include <Core/System/Threading/Semaphore.h>

#include <Platform/WaitObjects.h>

#include <Core/System/ArgumentException.h>
#include <Core/System/IO/IOException.h>
#include <Core/System/InvalidOperationException.h>
#include <Core/System/Threading/SemaphoreFullException.h>
#include <Core/System/ThrowSite.h>

namespace Tesmo::System::Threading
{
Semaphore::Semaphore(int initialCount, int maximumCount) : Semaphore(initialCount, maximumCount, "") {}

Semaphore::Semaphore(int initialCount, int maximumCount, const String& name)
{
    bool createdNew = false;
    *this = Semaphore(initialCount, maximumCount, name, createdNew);
}

Semaphore::Semaphore(int initialCount, int maximumCount, const String& name, bool& createdNew)
{
    if (maximumCount < 1 || initialCount > maximumCount)
    {
        throw ArgumentException(ThrowSite);
    }
    const Up<char[]> bytes = NativeName(name);
    Platform::WaitObject* object = nullptr;
    const Platform::WaitObjectResult result = Platform::NewSemaphore(initialCount, maximumCount, bytes.Get(), object);
    Adopt(result, object, createdNew);
}

Semaphore Semaphore::OpenExisting(const String& name)
{
    const Up<char[]> bytes = NativeNameOfExisting(name);
    Platform::WaitObject* object = nullptr;
    bool createdNew = false;
    Semaphore semaphore;
    const Platform::WaitObjectResult result = Platform::OpenNamedSemaphore(bytes.Get(), object);
    semaphore.Adopt(result, object, createdNew);
    return semaphore;
}

int Semaphore::Release()
{
    return Release(1);
}

int Semaphore::Release(int count)
{
    int previous = 0;
    const int error = Platform::ReleaseSemaphoreObject(Native(), count, previous);
    if (error == Platform::WaitTooManyPosts)
    {
        throw SemaphoreFullException(ThrowSite);
    }
    if (error != 0)
    {
        throw IO::IOException(ThrowSite);
    }
    return previous;
}

bool Semaphore::Signal()
{
    Release(1);
    return true;
}

bool Semaphore::Wait(int milliseconds)
{
    return WaitFor(Native(), milliseconds);
}

Platform::WaitObject& Semaphore::Native() const
{
    Platform::WaitObject* const object = NativeObject();
    if (object == nullptr)
    {
        throw InvalidOperationException(ThrowSite);
    }
    return *object;
}
} // namespace Tesmo::System::Threading
