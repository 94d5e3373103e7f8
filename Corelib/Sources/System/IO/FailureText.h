#pragma once

#include <Core/System/IO/IOException.h>

#include <system_error>

namespace Tesmo::System::IO
{
/// The text of an IOException: the path that could not be used, then the platform's reason.
/// @param code  as the native layer gave it
inline String FailureText(const String& path, int code)
{
    return IOException().Message() + " " + path + ": " + String(std::system_category().message(code));
}
} // namespace Tesmo::System::IO
