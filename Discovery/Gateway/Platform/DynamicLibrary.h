#pragma once

#include <string>

namespace Zelkor::Discovery::Client::Platform
{

/// Dynamic libraries of the operating system, to be loaded and unloaded while the program runs. Any thread; a library
/// that is opened twice goes with its second close.

/// What the names of libraries end in, as a pattern for files: "*.so" on Linux, "*.dll" on Win32.
extern const char* const LibraryPattern;

using Library = void*;
using LibraryFunction = void (*)();

/// Loads a library with all that it needs and runs its initialisers.
/// @param path  its file; with a separator in it, because a bare name is looked for in the folders of the system
/// @returns null on failure, which LastLibraryError tells
Library OpenLibrary(const std::string& path);

/// @param name  the plain name under which the library exports the function
/// @returns null on failure, which LastLibraryError tells
LibraryFunction FindFunction(Library library, const char* name);

/// Unloads a library; a failure shows nowhere.
void CloseLibrary(Library library);

/// Why the last call of this thread failed; for asking once, directly after the call.
/// @returns the text of dlerror on Linux, the number of GetLastError in decimal on Win32
std::string LastLibraryError();

} // namespace Zelkor::Discovery::Client::Platform
