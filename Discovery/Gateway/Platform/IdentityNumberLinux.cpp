#include "IdentityNumber.h"

#include <charconv>
#include <fstream>
#include <string_view>

namespace Zelkor::Discovery::Client::Platform
{

namespace
{

constexpr int MaximumSize = 64; // bytes; a longer file holds no number

constexpr std::string_view Blanks = " \t\r\n";

std::optional<std::uint32_t> Parse(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(Blanks);
    if (first == std::string_view::npos)
    {
        return std::nullopt;
    }
    text = text.substr(first, text.find_last_not_of(Blanks) - first + 1);
    std::uint32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number == UINT32_MAX)
    {
        return std::nullopt;
    }
    return number;
}

} // namespace

std::optional<std::uint32_t> ReadIdentityNumber()
{
    std::ifstream file(ZELKOR_IDENTITY_FILE, std::ios::binary);
    char text[MaximumSize + 1];
    file.read(text, sizeof(text));
    const auto length = static_cast<std::size_t>(file.gcount());
    return length > MaximumSize ? std::nullopt : Parse(std::string_view(text, length));
}

} // namespace Zelkor::Discovery::Client::Platform
