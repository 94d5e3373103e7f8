#include <Discovery/Gateway/Platform/IdentityNumber.h>
#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <tuple>

using Zelkor::Discovery::Platform::ReadIdentityNumber;

TEST(IdentityNumberTests, OneNumberInTheFileIsTheIdentityAllElseIsNone)
{
    using Row = std::tuple<std::string, std::optional<std::uint32_t>>;
    const Row rows[] = {
        {"0", 0},
        {"4294967294\n", 4294967294u},
        {" \t12345 \r\n", 12345},
        {"", std::nullopt},
        {"\n", std::nullopt},
        {"4294967295", std::nullopt},
        {"4294967296", std::nullopt},
        {"-1", std::nullopt},
        {"+1", std::nullopt},
        {"0x10", std::nullopt},
        {"1 2", std::nullopt},
        {"1\n2\n", std::nullopt},
        {std::string("1\0", 2), std::nullopt},
        {"7" + std::string(1000, ' '), std::nullopt},
    };
    for (const auto& [text, number] : rows)
    {
        SCOPED_TRACE(text);
        std::ofstream(ZELKOR_IDENTITY_FILE, std::ios::binary | std::ios::trunc) << text;
        EXPECT_EQ(number, ReadIdentityNumber());
    }
    std::remove(ZELKOR_IDENTITY_FILE);
    EXPECT_EQ(std::nullopt, ReadIdentityNumber());
}
