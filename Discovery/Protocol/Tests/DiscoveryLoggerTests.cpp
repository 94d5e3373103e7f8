#include "LogRecorder.h"

#include <Core/System/InvalidOperationException.h>
#include <Discovery/Protocol/DiscoveryLogger.h>

#include <gtest/gtest.h>

#include <exception>

using namespace Tesmo;
using namespace Tesmo::System;
using namespace Tesmo::System::LogStreams;
using namespace Zelkor::Discovery;

TEST(DiscoveryLoggerTests, WritesToTheInstalledStreamAndToNoneWithoutHarm)
{
    const LogStreamChannel channel("c");
    DiscoveryLogger& logger = DiscoveryLogger::Instance();
    EXPECT_FALSE(logger.IsOpen());
    logger.Write(channel, "lost", LogStreamLevel::Critical);
    logger.Write(channel, "lost", InvalidOperationException(ThrowSite));
    EXPECT_THROW(logger.Close(), std::exception);

    LogRecorder recorder;
    EXPECT_TRUE(logger.IsOpen());
    logger.Write(channel, "text", LogStreamLevel::Debug);
    logger.Write(channel, "Trying", InvalidOperationException("no way", "File.cpp", 7));
    const std::vector<std::string> expected = {"D c: text", "C c: Trying: no way, location: ", "C c: File.cpp:7"};
    EXPECT_EQ(expected, recorder.Take());

    logger.Close();
    EXPECT_FALSE(logger.IsOpen());
    logger.Write(channel, "lost", LogStreamLevel::Critical);
    EXPECT_TRUE(recorder.Take().empty());
}
