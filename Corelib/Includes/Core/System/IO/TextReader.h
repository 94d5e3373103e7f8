#pragma once

#include <Core/System/Object.h>
#include <Core/System/Sp.h>
#include <Core/System/String.h>

namespace Tesmo::System::IO
{
/// Reads text. It takes no lock, unless it comes from Synchronized.
class TextReader : public Object
{
public:
    TextReader(const TextReader&) = delete;
    TextReader& operator=(const TextReader&) = delete;

    /// A reader that has nothing to read.
    static TextReader& Null();

    /// A reader for any number of threads: each operation locks the given reader and calls it.
    /// @throws ArgumentNullException  reader is null or empty
    static Sp<TextReader> Synchronized(const Sp<TextReader>& reader);

    virtual void Close(); ///< no effect here
    virtual int Peek();   ///< the next number that Read gives; -1 here
    virtual int Read();   ///< -1 at the end, and here
    /// Up to the next line end, which is left out, or all that is left; empty at the end.
    virtual String ReadLine() = 0;
    virtual String ReadToEnd() = 0;

protected:
    TextReader() = default;
};
} // namespace Tesmo::System::IO
