#pragma once

#include <string>

namespace Zelkor::Discovery::Client::Platform
{

/// Dynamic libraries, loaded and unloaded while the program runs. Any thread; a library that was opened twice is
/// unloaded by its second close.

/// A pattern for the files of libraries: "*.so" on Linux, "*.dll" on Win32.
extern const char* const LibraryPattern;

using Library = void*;
using LibraryFunction = void (*)();

/// Loads a library with all that it needs and runs its initialisers.
/// @param path  its file; must have a separator in it, since a bare name is looked for in the folders of the system
/// @returns null on failure, which LastLibraryError tells
Library OpenLibrary(const std::string& path);

/// @param name  the plain name under which the library exports the function
/// @returns null on failure, which LastLibraryError tells
LibraryFunction FindFunction(Library library, const char* name);

/// Unloads a library; failures are not told.
void CloseLibrary(Library library);

/// Why the last call of this thread failed. To be asked once, right after that call.
/// @returns the text of dlerror on Linux, the number of GetLastError in decimal on Win32
std::string LastLibraryError();

} // namespace Zelkor::Discovery::Client::Platform
