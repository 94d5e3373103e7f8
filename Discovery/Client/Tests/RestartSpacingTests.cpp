#include <Discovery/Client/RestartSpacing.h>
#include <gtest/gtest.h>

namespace Zelkor::Discovery::Client
{
using std::chrono::milliseconds;

TEST(RestartSpacingTests, RestartsAfterFailedStartsAreASecondToAMinuteApart)
{
    RestartSpacing spacing;
    EXPECT_EQ(0, spacing.Next(milliseconds(60000)));
    for (const int delay : {1000, 2000, 4000, 8000, 16000, 32000, 60000, 60000})
    {
        EXPECT_EQ(delay, spacing.Next(milliseconds(59999)));
    }
    EXPECT_EQ(0, spacing.Next(milliseconds(60000))); // the start has held
    EXPECT_EQ(1000, spacing.Next(milliseconds(0)));
}
} // namespace Zelkor::Discovery::Client
