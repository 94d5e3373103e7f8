#include <Core/System/Threading/Mutex.h>

#include <Platform/WaitObjects.h>

#include <Core/System/ApplicationException.h>
#include <Core/System/IO/IOException.h>
#include <Core/System/ThrowSite.h>

namespace Tesmo::System::Threading
{
Mutex::Mutex() : Mutex(false) {}

Mutex::Mutex(bool initiallyOwned) : Mutex(initiallyOwned, "") {}

Mutex::Mutex(bool initiallyOwned, const String& name)
{
    bool createdNew = false;
    *this = Mutex(initiallyOwned, name, createdNew);
}

Mutex::Mutex(bool initiallyOwned, const String& name, bool& createdNew)
{
    const Up<char[]> bytes = NativeName(name);
    Platform::WaitObject* object = nullptr;
    const Platform::WaitObjectResult result = Platform::NewMutex(initiallyOwned, bytes.Get(), object);
    Adopt(result, object, createdNew);
}

Mutex Mutex::OpenExisting(const String& name)
{
    const Up<char[]> bytes = NativeNameOfExisting(name);
    Platform::WaitObject* object = nullptr;
    bool createdNew = false;
    Mutex mutex(nullptr);
    const Platform::WaitObjectResult result = Platform::OpenNamedMutex(bytes.Get(), object);
    mutex.Adopt(result, object, createdNew);
    return mutex;
}

void Mutex::ReleaseMutex()
{
    if (Platform::ReleaseMutexObject(Native()) != 0)
    {
        throw ApplicationException(ThrowSite);
    }
}

bool Mutex::Signal()
{
    ReleaseMutex();
    return true;
}

bool Mutex::Wait(int milliseconds)
{
    return WaitFor(Native(), milliseconds);
}

Platform::WaitObject& Mutex::Native() const
{
    Platform::WaitObject* const object = NativeObject();
    if (object == nullptr)
    {
        throw IO::IOException(ThrowSite);
    }
    return *object;
}
} // namespace Tesmo::System::Threading
