#pragma once

// What nearly every test of the library or of what stands on it needs: texts, arrays, wrappers, and the failures that
// the tests expect.

#include <Core/System/ApplicationException.h>
#include <Core/System/ArgumentNullException.h>
#include <Core/System/ArgumentOutOfRangeException.h>
#include <Core/System/Array.h>
#include <Core/System/Boolean.h>
#include <Core/System/Byte.h>
#include <Core/System/Char.h>
#include <Core/System/DateTime.h>
#include <Core/System/Double.h>
#include <Core/System/EventHandler.h>
#include <Core/System/FormatException.h>
#include <Core/System/IO/DirectoryNotFoundException.h>
#include <Core/System/IO/FileNotFoundException.h>
#include <Core/System/IO/Path.h>
#include <Core/System/IndexOutOfRangeException.h>
#include <Core/System/Int16.h>
#include <Core/System/Int32.h>
#include <Core/System/Int64.h>
#include <Core/System/InvalidCastException.h>
#include <Core/System/NotSupportedException.h>
#include <Core/System/NullReferenceException.h>
#include <Core/System/ObjectClosedException.h>
#include <Core/System/OutOfMemoryException.h>
#include <Core/System/OverflowException.h>
#include <Core/System/SByte.h>
#include <Core/System/Single.h>
#include <Core/System/String.h>
#include <Core/System/Threading/AbandonedMutexException.h>
#include <Core/System/Threading/Lock.h>
#include <Core/System/Threading/Mutex.h>
#include <Core/System/Threading/Semaphore.h>
#include <Core/System/Threading/SemaphoreFullException.h>
#include <Core/System/Threading/Thread.h>
#include <Core/System/Threading/ThreadStateException.h>
#include <Core/System/Type.h>
#include <Core/System/UInt16.h>
#include <Core/System/UInt32.h>
#include <Core/System/UInt64.h>
#include <Core/System/Version.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <future>
#include <limits>
#include <set>
#include <string>
#include <thread>
#include <tuple>
#include <vector>

// Tests speak of the library as it speaks of itself.
using namespace Tesmo;
using namespace Tesmo::System;

/// Each of the operations fails with an exception of the class.
template <class E>
void ExpectEachThrows(std::initializer_list<std::function<void()>> operations)
{
    for (int row = 0; const auto& operation : operations)
    {
        EXPECT_THROW(operation(), E) << "operation " << row;
        row++;
    }
}

/// A text that is expected, and the one that was found.
using TextRow = std::pair<std::string, String>;

inline void ExpectTexts(std::initializer_list<TextRow> rows)
{
    for (const auto& [wanted, text] : rows)
    {
        EXPECT_EQ(wanted, text.Utf8());
    }
}

/// The failure of the action, or one that says so where there is none.
inline Exception FailureOf(const std::function<void()>& action)
{
    try
    {
        action();
    }
    catch (const Exception& failure)
    {
        return failure;
    }
    return Exception("no failure", "", 0);
}

/// True under Wine, which the tests' own host has: for the few things that it does otherwise than Windows.
inline bool OnWine()
{
    return std::getenv("WIN32_HOST") != nullptr; // set by Tests/Win32/host
}

/// What the action gives on a thread of its own.
template <class Action>
auto OnAnotherThread(Action action)
{
    return std::async(std::launch::async, action).get();
}
