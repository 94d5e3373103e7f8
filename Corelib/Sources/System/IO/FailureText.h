#pragma once

#include <Core/System/IO/IOException.h>

#include <system_error>

namespace Tesmo::System::IO
{
/// The text of an IOException with the path that could not be used and the platform's reason behind it.
/// @param code  as the native layer gave it
inline String FailureText(const String& path, int code)
{
    return IOException().Message() + " " + path + ": " + String(std::system_category().message(code));
}
} // namespace Tesmo::System::IO
