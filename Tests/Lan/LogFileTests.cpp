#include "LanTest.h"

#include <regex>
#include <sstream>

namespace Lan
{
using LogFileTests = LanTest;

TEST_F(LogFileTests, EachRunAppendsAHeaderAndRowsInTheFormThatReadersOfTheFileKnow)
{
    const std::regex row(R"(\|\d\d/\d\d/\d{4} \d\d:\d\d:\d\d\.\d{1,3}\.000\|0x[0-9A-F]{16}\|(?=.{40}\|).*? *\|)"
                         R"([CS]\|(?: {11}|\$0x[0-9A-F]{8})\|.*\|\r)");
    std::size_t read = 0;
    for (const int run : {1, 2})
    {
        StartAndHearHello();
        ExpectCleanStop();
        const std::string log = folders.Log();
        const std::size_t columns = log.find("\r\n|Date                   |RefTime           |Channel ", read);
        ASSERT_NE(std::string::npos, columns) << log;
        EXPECT_TRUE(log.substr(read, columns).starts_with("/---")) << log;
        std::istringstream rows(log.substr(log.find("\r\n", log.find("\r\n|---", columns) + 2) + 2));
        for (std::string line; std::getline(rows, line);)
        {
            EXPECT_TRUE(std::regex_match(line, row)) << line;
        }
        EXPECT_EQ(run, client->Logged("|Discovery Client service stopped|\r\n")) << log;
        read = log.size();
    }
}
} // namespace Lan
