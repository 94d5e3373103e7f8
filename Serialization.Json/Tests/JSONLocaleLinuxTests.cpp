#include <Serialization.Json/JSONArray.h>
#include <Tests/Support/CoreTest.h>
#include <Tests/Support/TemporaryFolder.h>

#include <clocale>
#include <cstdlib>

using namespace Tesmo::System;
using namespace Zelkor::Serialization::Json;

TEST(JSONLocaleLinuxTests, ADecimalCommaChangesNoNumber)
{
    const TemporaryFolder folder;
    const std::string commas = folder.Path("de_DE.UTF-8").Utf8();
    ::setenv("LOCPATH", folder.Path().Utf8().c_str(), 1);
    if (std::system(("localedef -i de_DE -f UTF-8 " + commas + " 2>/dev/null").c_str()) != 0 ||
        std::setlocale(LC_NUMERIC, "de_DE.UTF-8") == nullptr) // as a plug-in may do
    {
        GTEST_SKIP() << "no locale with a decimal comma is to be had";
    }
    const JSONArray array(String("[0.25,0.25" + std::string(70, '0') + "]"));
    EXPECT_EQ("[0.250000,0.250000]", array.ToString().Utf8());
    std::setlocale(LC_NUMERIC, "C");
}
