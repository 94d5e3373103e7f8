#include <Discovery/Gateway/Platform/Linux/HostNameRule.h>

#include <gtest/gtest.h>
#include <string>

using Zelkor::Discovery::Platform::IsHostName;

TEST(HostNameRuleTests, LabelsOfLettersDigitsAndInnerHyphensMakeAHostName)
{
    const std::string longest(64, 'a');
    for (const std::string& name : {std::string("a"), std::string("STUDIO-4"), std::string("4.a--b.Z9"), longest})
    {
        EXPECT_TRUE(IsHostName(name)) << name;
    }
    for (const std::string& name :
         {std::string(), std::string("."), std::string("a."), std::string(".a"), std::string("a..b"), std::string("-a"),
          std::string("a-"), std::string("a.-b"), std::string("a_b"), std::string("a b"), std::string("a/b"),
          std::string("stra\xC3\x9F"
                      "e"),
          std::string("a\0b", 3), longest + "a"})
    {
        EXPECT_FALSE(IsHostName(name)) << name;
    }
}
