#include <Discovery/Gateway/Platform/IdentityNumber.h>
#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <string>

using Zelkor::Discovery::Platform::ReadIdentityNumber;

TEST(IdentityNumberTests, OneNumberInTheFileIsTheIdentityAllElseIsNone)
{
    struct Row
    {
        std::string text;
        std::optional<std::uint32_t> number;
    };
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
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.text);
        std::ofstream(ZELKOR_IDENTITY_FILE, std::ios::binary | std::ios::trunc) << row.text;
        EXPECT_EQ(row.number, ReadIdentityNumber());
    }
    std::remove(ZELKOR_IDENTITY_FILE);
    EXPECT_EQ(std::nullopt, ReadIdentityNumber());
}
