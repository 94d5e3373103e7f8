#include <Serialization.Json/JSONArray.h>
#include <Serialization.Json/JSONObject.h>
#include <Tests/Support/CoreTest.h>
#include <Tests/Support/TemporaryFolder.h>

#include <clocale>
#include <cstdlib>

using namespace Zelkor::Serialization::Json;

TEST(JSONLocaleLinuxTests, ALocaleChangesNoNumberAndNoName)
{
    const TemporaryFolder folder;
    ::setenv("LOCPATH", folder.Path().Utf8().c_str(), 1);
    for (const std::string name : {"ps_AF", "tr_TR"}) // a decimal point of two bytes; an I that is no small i
    {
        const std::string files = folder.Path(name.c_str()).Utf8();
        if (std::system(("localedef -i " + name + " -f UTF-8 " + files + " 2>/dev/null").c_str()) != 0 ||
            std::setlocale(LC_ALL, name.c_str()) == nullptr) // as a plug-in may do
        {
            GTEST_SKIP() << "no locale " << name << " is to be had";
        }
        const JSONArray array(String("[0.25,-12.5e-1,0.25" + std::string(70, '0') + "]"));
        EXPECT_EQ("[0.250000,-1.250000,0.250000]", array.ToString().Utf8()) << name;
        EXPECT_TRUE(JSONObject(String(R"({"IP":1})")).Has("ip")) << name;
    }
    std::setlocale(LC_ALL, "C");
}
