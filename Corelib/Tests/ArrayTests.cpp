#include <Tests/Support/CoreTest.h>

TEST(ArrayTests, AnIntIsALengthAndACharacterIsAnElement)
{
    const unsigned char bytes[] = {1, 2, 3};
    const Array<unsigned char> copy(bytes, 2);
    EXPECT_TRUE(copy.Length() == 2 && copy[1] == 2 && Array<unsigned char>(7)[6] == 0);
    EXPECT_EQ(44, Array<char32>(44).Length());
    EXPECT_EQ(1, Array<char32>(',').Length());
    EXPECT_EQ(1, Array<char32>(U',').Length());
    EXPECT_EQ(2, Array<unsigned char>(0, 1).Length());
    EXPECT_EQ(5, Array<String>("a", "b", "c", "d", "e").Length());
    ExpectEachThrows<ArgumentOutOfRangeException>({[] { Array<int>(-1); }, [&] { Array<unsigned char>(bytes, -1); }});
    EXPECT_THROW(Array<unsigned char>(static_cast<const unsigned char*>(nullptr), 0), ArgumentNullException);
}

TEST(ArrayTests, TheLengthIsFixedAndBoundsTheIndexes)
{
    Array<String> array("a", "b");
    const Array<int> empty(0);
    EXPECT_EQ(0, empty.GetLowerBound(0));
    EXPECT_TRUE(empty.GetUpperBound(0) == -1 && array.GetUpperBound(0) == 1);
    ExpectEachThrows<ArgumentOutOfRangeException>({[&] { empty.GetUpperBound(1); }, [&] { empty.GetLowerBound(1); }});
    ExpectEachThrows<IndexOutOfRangeException>({[&] { array[-1] = "c"; }, [&] { array[2] = "c"; }});
    ExpectEachThrows<InvalidOperationException>({[&] { array.Add("c"); }, [&] { array.Clear(); },
                                                 [&] { array.Insert(0, "c"); }, [&] { array.Remove("a"); },
                                                 [&] { array.RemoveAt(0); }});
    EXPECT_TRUE(array.IsFixedSize() && !array.IsReadOnly() && !array.IsSynchronized() && array.Count() == 2);
}

TEST(ArrayTests, IndexOfSearchesItsRangeOnly)
{
    const Array<int> array(std::vector<int>{5, 6, 5, 7});
    EXPECT_TRUE(array.Contains(5) && !array.Contains(9));
    EXPECT_TRUE(array.IndexOf(5) == 0 && array.IndexOf(5, 1, 3) == 2 && array.IndexOf(7, 0, 3) == -1);
    EXPECT_EQ(-1, Array<int>(0).IndexOf(5, -1, -1));
    ExpectEachThrows<ArgumentOutOfRangeException>({[&] { array.IndexOf(5, 1, 4); }, [&] { array.IndexOf(5, 4, 0); }});
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
