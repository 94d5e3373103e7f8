#include <Core/System/Environment.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <tuple>

using namespace Tesmo::System;

TEST(EnvironmentLinuxTests, WhatComesFromVariablesIsEmptyWithoutThem)
{
    using Row = std::tuple<const char*, String (*)()>;
    for (const auto& [name, read] :
         {Row{"COMPUTERNAME", Environment::MachineName}, Row{"USERNAME", Environment::UserName},
          Row{"USERDOMAIN", Environment::UserDomainName},
          Row{"PROCESSOR_ARCHITECTURE", Environment::ProcessorArchitecture}})
    {
        setenv(name, name, 1);
        EXPECT_EQ(name, read().Utf8());
        unsetenv(name);
        EXPECT_EQ("", read().Utf8()) << name;
    }
    EXPECT_EQ(1, Environment::ProcessorCount());
    setenv("NUMBER_OF_PROCESSORS", "7", 1);
    EXPECT_EQ(7, Environment::ProcessorCount());
    EXPECT_EQ(sizeof(void*) == 8, Environment::Is64BitProcess());
    EXPECT_EXIT(Environment::Exit(3), testing::ExitedWithCode(3), "");
}
