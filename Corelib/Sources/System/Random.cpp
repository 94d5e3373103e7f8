#include <Core/System/Random.h>

#include <Core/System/ArgumentNullException.h>
#include <Core/System/ArgumentOutOfRangeException.h>
#include <Core/System/Array.h>
#include <Core/System/Checks.h>
#include <Core/System/DateTime.h>

#include <cstdlib>
#include <limits>

namespace Tesmo::System
{
namespace
{
constexpr int LargestDraw = 32767; // the least RAND_MAX that the C standard allows; larger ones are cut down to it
}

Random::Random()
{
    std::srand(static_cast<unsigned>(DateTime::Now().Ticks()));
}

Random::Random(int seed)
{
    std::srand(static_cast<unsigned>(seed));
}

bool Random::Equals(const Object& other) const
{
    return Object::Equals(other);
}

String Random::ToString() const
{
    return Object::ToString();
}

int Random::Next(int minValue, int maxValue)
{
    if (minValue > maxValue)
    {
        throw ArgumentOutOfRangeException(ThrowSite);
    }
    const double range = static_cast<double>(maxValue) - minValue;
    return static_cast<int>(Sample() * range + minValue);
}

int Random::Next(int maxValue)
{
    return Next(0, maxValue);
}

int Random::Next()
{
    return Next(0, std::numeric_limits<int>::max());
}

void Random::NextBytes(Array<unsigned char>& buffer)
{
    NotNull(buffer);
    for (unsigned char& byte : buffer)
    {
        byte = static_cast<unsigned char>(Next(0, 255));
    }
}

double Random::NextDouble()
{
    return Sample();
}

double Random::Sample()
{
    return static_cast<double>(std::rand() & LargestDraw) / LargestDraw;
}
} // namespace Tesmo::System
