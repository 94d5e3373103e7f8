#pragma once

#include "Commands.h"
#include "PrivateHost.h"

#include <gtest/gtest.h>

/// A test in namespaces of its own, skipped where the system refuses them.
/// @tparam Place  PrivateNetwork or PrivateHost
template <class Place>
class IsolatedTest : public testing::Test
{
protected:
    IsolatedTest()
    {
        SkipUnless(host.IsEntered()); // then neither SetUp nor the test runs
    }

    Place host;

private:
    static void SkipUnless(bool isEntered)
    {
        if (!isEntered)
        {
            GTEST_SKIP() << "the system refuses namespaces";
        }
    }
};
