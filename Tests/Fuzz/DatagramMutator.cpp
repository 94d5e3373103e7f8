#include "DatagramMutator.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace Zelkor::Discovery
{
namespace
{
constexpr std::size_t LargestDatagram = 65507; // bytes; 65535 less the headers of RFC 791 and RFC 768
constexpr std::size_t MostChanges = 6;

using namespace std::string_view_literals;

/// What JSON text and the protocol's values are made of, and what breaks them.
constexpr std::string_view Tokens[] = {
    "{",
    "}",
    "[",
    "]",
    ",",
    ":",
    "\"",
    "\\",
    "\\u0000",
    "\\ud83d",
    "\\udc00",
    "\\uZZZZ",
    "\\x",
    "\0"sv,
    "\xFF",
    "\x01",
    "null",
    "true",
    "1e999",
    "-1e999",
    "0.1e-320",
    "1.",
    "007",
    "{\"\":\"\"}",
    "[[[[[[[[[[",
    "{}",
    "[1,2,{}]",
    "\"True\"",
    "\"False\"",
    "\"Hello\"",
    "\"Bye\"",
    "\"Host\":",
    "\"NICs\":",
    "\"a\":1,",
    "\"a\":\"",
    "255.255.255.255",
    "0:0:0:0:0:0:0:1%5",
    "1:2:3:4:5:6:7:8",
    "FF:FF",
    "%n%s",
};
} // namespace

DatagramMutator::DatagramMutator(std::vector<std::string> goodOnes, unsigned seed)
    : samples(std::move(goodOnes)),
      engine(seed)
{
}

std::string DatagramMutator::Next()
{
    constexpr std::size_t longestNoise = 300;
    if (Below(10) == 0)
    {
        return Noise(Below(longestNoise));
    }
    std::string text = samples[Below(samples.size())];
    for (std::size_t changes = Below(MostChanges + 1); changes > 0; --changes)
    {
        Change(text);
    }
    text.resize(std::min(text.size(), LargestDatagram));
    return text;
}

/// The distributions of the standard library differ from platform to platform.
std::size_t DatagramMutator::Below(std::size_t limit)
{
    return engine() % limit;
}

std::string DatagramMutator::Noise(std::size_t size)
{
    std::string noise(size, '\0');
    std::generate(noise.begin(), noise.end(), [this] { return static_cast<char>(engine()); });
    return noise;
}

void DatagramMutator::Change(std::string& text)
{
    constexpr std::size_t mostRepeats = 300;
    const std::size_t position = Below(text.size() + 1);
    const std::size_t length = Below(std::min<std::size_t>(text.size() - position, 40) + 1);
    const std::string_view token = Tokens[Below(std::size(Tokens))];
    switch (Below(8))
    {
    case 0:
        text.insert(position, Noise(1));
        break;
    case 1:
        text.replace(position, length, token);
        break;
    case 2:
        text.insert(position, token);
        break;
    case 3:
        text.erase(position, length);
        break;
    case 4:
        text.insert(position, text.substr(position, length));
        break;
    case 5:
        text.resize(position);
        break;
    case 6:
    {
        const std::string& other = samples[Below(samples.size())];
        text.replace(position, length, other.substr(Below(other.size() + 1)));
        break;
    }
    default:
        for (std::size_t repeats = Below(mostRepeats); repeats > 0; --repeats)
        {
            text.insert(position, token);
        }
    }
}
} // namespace Zelkor::Discovery
