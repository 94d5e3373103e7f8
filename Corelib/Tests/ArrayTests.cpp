#include <Core/System/Array.h>

#include <gtest/gtest.h>

using namespace Tesmo;
using namespace Tesmo::System;

TEST(ArrayTests, AnIntIsALengthAndACharacterIsAnElement)
{
    EXPECT_EQ(44, Array<char32>(44).Length());
    EXPECT_EQ(1, Array<char32>(',').Length());
    EXPECT_EQ(1, Array<char32>(U',').Length());
    EXPECT_EQ(0, Array<unsigned char>(7)[6]);
    EXPECT_EQ(2, Array<unsigned char>(0, 1).Length());
    EXPECT_EQ(5, Array<String>("a", "b", "c", "d", "e").Length());
}

TEST(ArrayTests, ConstructionChecksSourceAndLength)
{
    const unsigned char bytes[] = {1, 2, 3};
    const Array<unsigned char> copy(bytes, 2);
    EXPECT_EQ(2, copy.Length());
    EXPECT_EQ(2, copy[1]);

    EXPECT_THROW(Array<int>(-1), ArgumentOutOfRangeException);
    EXPECT_THROW(Array<unsigned char>(bytes, -1), ArgumentOutOfRangeException);
    EXPECT_THROW(Array<unsigned char>(static_cast<const unsigned char*>(nullptr), 0), ArgumentNullException);
}

TEST(ArrayTests, BoundsFollowTheLength)
{
    const Array<int> empty(0);
    EXPECT_EQ(0, empty.GetLowerBound(0));
    EXPECT_EQ(-1, empty.GetUpperBound(0));
    EXPECT_EQ(2, Array<int>(3).GetUpperBound(0));
    EXPECT_THROW(empty.GetUpperBound(1), ArgumentOutOfRangeException);
    EXPECT_THROW(empty.GetLowerBound(1), ArgumentOutOfRangeException);

    Array<int> three(3);
    for (const int index : {-1, 3})
    {
        EXPECT_THROW(three[index] = 0, IndexOutOfRangeException) << index;
    }
}

TEST(ArrayTests, WhatWouldChangeTheLengthIsRefused)
{
    Array<String> array("a", "b");

    EXPECT_THROW(array.Add("c"), InvalidOperationException);
    EXPECT_THROW(array.Clear(), InvalidOperationException);
    EXPECT_THROW(array.Insert(0, "c"), InvalidOperationException);
    EXPECT_THROW(array.Remove("a"), InvalidOperationException);
    EXPECT_THROW(array.RemoveAt(0), InvalidOperationException);
    EXPECT_TRUE(array.IsFixedSize() && !array.IsReadOnly() && !array.IsSynchronized());
    EXPECT_EQ(2, array.Count());
}

TEST(ArrayTests, IndexOfSearchesItsRangeOnly)
{
    const Array<int> array(std::vector<int>{5, 6, 5, 7});
    EXPECT_EQ(0, array.IndexOf(5));
    EXPECT_TRUE(array.Contains(5) && !array.Contains(9));
    EXPECT_EQ(2, array.IndexOf(5, 1, 3));
    EXPECT_EQ(-1, array.IndexOf(7, 0, 3));
    EXPECT_THROW(array.IndexOf(5, 1, 4), ArgumentOutOfRangeException);
    EXPECT_THROW(array.IndexOf(5, 4, 0), ArgumentOutOfRangeException);
    EXPECT_EQ(-1, Array<int>(0).IndexOf(5, -1, -1));
}

TEST(ArrayTests, WalksInBothDirections)
{
    const Array<String> array("a", "b", "c");
    const auto text = [](const Up<Collections::Generic::IEnumerator<String>>& walk)
    {
        String all;
        while (walk->MoveNext())
        {
            all += walk->Current();
        }
        EXPECT_THROW(walk->Current(), InvalidOperationException);
        return all;
    };
    EXPECT_EQ(text(array.GetEnumerator()).Utf8(), "abc");
    EXPECT_EQ(text(array.GetReverseEnumerator()).Utf8(), "cba");

    Array<String> changed(5);
    array.CopyTo(changed, 2);
    EXPECT_EQ(text(changed.GetEnumerator()).Utf8(), "abc");
    auto walk = changed.GetEnumerator();
    changed = array;
    EXPECT_THROW(walk->MoveNext(), InvalidOperationException);
    walk = changed.GetEnumerator();
    changed = Array<String>("d", "e");
    EXPECT_THROW(walk->MoveNext(), InvalidOperationException);
    EXPECT_EQ(text(changed.GetReverseEnumerator()).Utf8(), "ed");
}
