#pragma once

#include <string>

namespace Zelkor::Discovery::Client::Platform
{

/// Dynamic libraries, loaded and unloaded while the program runs. Any thread; a library that was opened twice is
/// unloaded by its second close.

/// How the names of libraries end: ".so" on Linux, ".dll" on Win32.
extern const char* const LibraryExtension;

using Library = void*;
using LibraryFunction = void (*)();

/// Loads a library with all that it needs and runs its initialisers.
/// @param path  its file; must have a separator in it, since a bare name is looked for in the folders of the system
/// @returns null on failure, which LastLibraryError tells
Library OpenLibrary(const std::string& path);

/// @param name  the plain name under which the library exports the function
/// @returns null on failure, which LastLibraryError tells
LibraryFunction FindFunction(Library library, const char* name);

/// What a library cost the process.
enum class LibraryCost
{
    Nothing,
    ThreadLocalIndexes ///< Win32: it takes one of the 1088 of a process each time and never gives it back
};

/// Unloads a library; failures are not told. On Win32 one that was found to take thread-local indexes for good is left
/// loaded from its next close on, so that it takes no more, until UnloadReplacedLibraries finds another file there.
/// @returns what was found out by this call, so that each cost is told once as long as the file stays the same
LibraryCost CloseLibrary(Library library);

/// Unloads what was left loaded and whose file has been replaced, renamed or removed since. Does nothing while any
/// library is open. On Linux nothing is left loaded.
void UnloadReplacedLibraries();

/// Why the last call of this thread failed. To be asked once, right after that call.
/// @returns the text of dlerror on Linux, the number of GetLastError in decimal on Win32
std::string LastLibraryError();

} // namespace Zelkor::Discovery::Client::Platform
