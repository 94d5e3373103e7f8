#pragma once

#include <cstddef>
#include <random>
#include <string>
#include <vector>

namespace Zelkor::Discovery
{
/// Makes datagrams out of good ones: the same series for the same seed on every platform.
class DatagramMutator
{
public:
    DatagramMutator(std::vector<std::string> goodOnes, unsigned seed);

    /// A changed good one, or, one time in ten, bytes without sense.
    std::string Next();

private:
    std::size_t Below(std::size_t limit);
    std::string Noise(std::size_t size);
    void Change(std::string& text);

    std::vector<std::string> samples;
    std::mt19937 engine;
};
} // namespace Zelkor::Discovery
