#pragma once

#include <cstdint>
#include <string>

namespace Zelkor::Discovery::Client
{
/// The four questions that the discovery client asks a product which is installed on its host. The product answers them
/// by a plug-in: a dynamic library (*.so on Linux, *.dll on Win32) in the client's folder of plug-ins, which exports
/// GetDiscoveryProductPlugin.
///
/// For each announcement of its host the client loads the library, calls GetDiscoveryProductPlugin, asks the questions
/// in the order below, each once, up to the first that is refused, and unloads the library. Announcements wait for the
/// answers, so a plug-in must be quick. Two threads may do all this at the same time with the same library.
///
/// This is the whole contract; what breaks it ends in undefined behaviour, unless it says otherwise:
///
/// - Build. A plug-in has the processor architecture of the client and is built with a compatible compiler and C++
///   standard library, because a table of virtual operations and std::string objects cross the boundary. The table
///   holds the four operations in the order below and nothing before or among them; the class of the object may add its
///   own behind them. Win32: 32-bit x86, by a compiler with Win32 threads, linked with -static, as the client is, and
///   with Platform/Win32/PluginRuntime.cpp, which gives back what the plug-in's own run-time library keeps.
/// - Object. GetDiscoveryProductPlugin never returns null. It makes a new object for each call by plain `new` of the
///   process, neither as an array nor with extended alignment, and returns the address that `new` gave, so this class
///   is the first base of the object's class. The object belongs to the client from then on, which gives the memory
///   back by `::operator delete` and calls no destructor: the object holds nothing that needs one.
/// - Texts. A question writes its answer as UTF-8 into text, which is empty before. The client destroys the texts after
///   it has unloaded the library, so they keep the allocator they have. All products and adapters of a host share one
///   datagram of 65507 bytes: keep the texts short.
/// - Failure. A question that cannot be answered returns any value but 0; the product is left out of this announcement.
///   No exception leaves a plug-in, though it may throw and catch within itself. On Linux one that does passes through
///   the client, and ends the client's thread unless it is of the client's own library; on Win32 it can't leave a
///   statically linked library and ends the process at once (exit code 3). So does a processor fault on either.
/// - Nothing is left behind, because the code of the library goes away after the questions: no thread, no timer, no
///   handler, no object of other libraries that refers to it. Nothing keeps the library in the process either: no
///   reference to itself, no linking with -z nodelete, no thread_local object with a destructor. On Linux its code is
///   compiled with -fno-gnu-unique, because the loader never unloads a library that holds a unique symbol; an update
///   of such a product would show only when the client starts again. On Win32 a thread-local index (TlsAlloc) of the
///   plug-in is given back at its unload by PluginRuntime.cpp; a plug-in that leaves indexes behind is logged, and stays
///   loaded from its third load on until its file is replaced.
class IDiscoveryProductPlugin
{
public:
    /// @param text  receives the kind of product
    /// @returns 0 for success
    virtual std::int32_t GetProductType(std::string& text) = 0;

    /// @param text  receives the serial number; an empty one is an answer too
    /// @returns 0 for success
    virtual std::int32_t GetProductSerialNumber(std::string& text) = 0;

    /// @param text  receives the version
    /// @returns 0 for success
    virtual std::int32_t GetProductVersion(std::string& text) = 0;

    /// @param text  receives the name for people
    /// @returns 0 for success
    virtual std::int32_t GetProductName(std::string& text) = 0;

protected:
    /// Not virtual, so that it has no entry in the table; nobody calls it.
    ~IDiscoveryProductPlugin() = default;
};
} // namespace Zelkor::Discovery::Client

// Each platform takes the attribute that it knows.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wattributes"
/// What a plug-in exports, under this very name.
/// @returns a new object that belongs to the caller, never null
extern "C" [[gnu::visibility("default"), gnu::dllexport]] Zelkor::Discovery::Client::IDiscoveryProductPlugin*
GetDiscoveryProductPlugin();
#pragma GCC diagnostic pop
