#pragma once

#include <Core/System/Object.h>
#include <Core/System/Sp.h>
#include <Core/System/String.h>

namespace Tesmo::System::IO
{
/// Writes text. It takes no lock, unless it comes from Synchronized.
class TextWriter : public Object
{
public:
    TextWriter(const TextWriter&) = delete;
    TextWriter& operator=(const TextWriter&) = delete;

    /// A writer that discards everything.
    static TextWriter& Null();

    /// A writer for any number of threads: each operation locks the given writer and calls it, so a line stays whole.
    /// @throws ArgumentNullException  writer is null or empty
    static Sp<TextWriter> Synchronized(const Sp<TextWriter>& writer);

    virtual void Close();                       ///< no effect here
    virtual void Flush();                       ///< no effect here
    virtual void Write(const String& text);     ///< no effect here
    virtual void WriteLine(const String& text); ///< Write, then WriteLine()
    void WriteLine();                           ///< the line end, CR LF

protected:
    TextWriter() = default;
};
} // namespace Tesmo::System::IO
