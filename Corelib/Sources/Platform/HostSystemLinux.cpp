#include "HostSystem.h"

#include <charconv>
#include <string_view>

#include <sys/utsname.h>

namespace Tesmo::Platform
{
namespace
{
/// Takes the number at the head of text, and the '.' behind it.
int TakeNumber(std::string_view& text)
{
    int number = 0;
    const char* const end = text.data() + text.size();
    const char* const stop = std::from_chars(text.data(), end, number).ptr;
    text.remove_prefix(static_cast<std::size_t>(stop - text.data()));
    text.remove_prefix(text.starts_with('.') ? 1 : 0);
    return number;
}
} // namespace

HostSystem ReadHostSystem()
{
    utsname names{};
    uname(&names);
    std::string_view release(names.release);
    const int major = TakeNumber(release);
    const int minor = TakeNumber(release);
    return {4, major, minor, TakeNumber(release)};
}
} // namespace Tesmo::Platform
