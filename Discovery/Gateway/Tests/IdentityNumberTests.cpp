#include <Discovery/Gateway/Platform/IdentityNumber.h>
#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <tuple>
#include <vector>

using Zelkor::Discovery::Client::Platform::ReadIdentityNumber;

TEST(IdentityNumberTests, OneNumberInTheFileIsTheIdentityAllElseIsNone)
{
    using Row = std::tuple<std::string, std::optional<std::uint32_t>>;
    std::vector<Row> rows = {{"0", 0}, {"4294967294\n", 4294967294u}, {" \t12345 \r\n", 12345}};
    for (const std::string& none :
         {std::string(), std::string("\n"), std::string("4294967295"), std::string("4294967296"), std::string("-1"),
          std::string("+1"), std::string("0x10"), std::string("1 2"), std::string("1\0", 2),
          "7" + std::string(1000, ' ')})
    {
        rows.emplace_back(none, std::nullopt);
    }
    for (const auto& [text, number] : rows)
    {
        SCOPED_TRACE(text);
        std::ofstream(ZELKOR_IDENTITY_FILE, std::ios::binary | std::ios::trunc) << text;
        EXPECT_EQ(number, ReadIdentityNumber());
    }
    std::remove(ZELKOR_IDENTITY_FILE);
    EXPECT_EQ(std::nullopt, ReadIdentityNumber());
}
