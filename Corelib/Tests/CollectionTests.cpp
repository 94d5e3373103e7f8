#include <Core/System/Collections/Generic/Dictionary.h>
#include <Core/System/Collections/Generic/List.h>
#include <Core/System/Collections/Generic/Queue.h>
#include <Core/System/Collections/Generic/SortedDictionary.h>

#include <gtest/gtest.h>
#include <limits>

using namespace Tesmo;
using namespace Tesmo::System;
using namespace Tesmo::System::Collections::Generic;

namespace
{
/// Makes the element with a number, for collections of every kind.
template <class T>
struct Make
{
    static T Element(int number)
    {
        if constexpr (std::is_same_v<T, int>)
        {
            return number;
        }
        else
        {
            return String(std::to_string(number));
        }
    }
};

template <class K, class V>
struct Make<KeyValuePair<K, V>>
{
    static KeyValuePair<K, V> Element(int number)
    {
        return KeyValuePair<K, V>(Make<K>::Element(number), Make<V>::Element(number));
    }
};

template <class T>
T ElementOf(const ICollection<T>&);

/// The rules that hold for every collection.
template <class Collection>
class CollectionTests : public testing::Test
{
protected:
    using Element = decltype(ElementOf(std::declval<Collection>()));

    void Fill(int count)
    {
        for (int i = 0; i < count; i++)
        {
            collection.Add(Make<Element>::Element(i + 1)); // none equals the default value
        }
    }

    Collection collection;
};

using AllCollections =
    testing::Types<List<int>, List<String>, Queue<int>, Queue<String>, Dictionary<String, String>, Dictionary<int, int>,
                   SortedDictionary<int, String>, SortedDictionary<String, int>>;
} // namespace
TYPED_TEST_SUITE(CollectionTests, AllCollections);

TYPED_TEST(CollectionTests, GivesTheFixedAnswers)
{
    EXPECT_FALSE(this->collection.IsReadOnly() || this->collection.IsSynchronized() || this->collection.IsFixedSize());
    EXPECT_EQ(static_cast<Object*>(&this->collection), &this->collection.SyncRoot());
}

TYPED_TEST(CollectionTests, AWalkSeesEveryElementOnceAndNoneBeforeOrBehindThem)
{
    this->Fill(20);
    const auto walk = this->collection.GetEnumerator();
    EXPECT_TRUE(walk->MoveNext());
    walk->Reset();
    EXPECT_THROW(walk->Current(), InvalidOperationException);
    int steps = 0;
    for (; walk->MoveNext(); steps++)
    {
        EXPECT_TRUE(this->collection.Contains(walk->Current()));
    }
    EXPECT_EQ(20, steps);
    EXPECT_FALSE(walk->MoveNext());
    EXPECT_THROW(walk->Current(), InvalidOperationException);
    EXPECT_THROW(this->collection.GetEnumerator()->Current(), InvalidOperationException);
}

TYPED_TEST(CollectionTests, AChangeEndsAWalkUntilItIsReset)
{
    const auto first = Make<typename TestFixture::Element>::Element(0);
    const auto empty = this->collection.GetEnumerator();
    this->collection.Add(first);
    EXPECT_THROW(empty->MoveNext(), InvalidOperationException);

    const auto walk = this->collection.GetEnumerator();
    EXPECT_TRUE(walk->MoveNext());
    this->collection.Add(Make<typename TestFixture::Element>::Element(1));
    EXPECT_TRUE(walk->Current() == first) << "Current does not check the version";
    EXPECT_THROW(walk->MoveNext(), InvalidOperationException);
    walk->Reset();
    EXPECT_TRUE(walk->MoveNext());

    this->collection.Clear();
    EXPECT_THROW(walk->MoveNext(), InvalidOperationException);
}

TYPED_TEST(CollectionTests, CopyToChecksItsArguments)
{
    using Target = Array<typename TestFixture::Element>;
    this->Fill(3);
    Target array(4);

    this->collection.CopyTo(array, 1);
    EXPECT_FALSE(array[3] == array[0]);
    EXPECT_THROW(this->collection.CopyTo(array, -1), ArgumentOutOfRangeException);
    EXPECT_THROW(this->collection.CopyTo(array, 2), ArgumentException);
    EXPECT_THROW(this->collection.CopyTo(const_cast<Target&>(static_cast<const Target&>(null)), 0),
                 ArgumentNullException);
}

TEST(ListTests, AllowsTheIndexBehindTheLastElement)
{
    List<String> list;
    EXPECT_TRUE(IsNull(list[0])) << "a list that never held an element";
    list.Add("a");
    EXPECT_EQ(&list[0] + 1, &list[1]);
    EXPECT_THROW(list[2], ArgumentOutOfRangeException);
    EXPECT_THROW(list[-1], ArgumentOutOfRangeException);
    EXPECT_THROW(list.RemoveAt(1), ArgumentOutOfRangeException);
}

TEST(ListTests, InsertsRemovesAndFinds)
{
    List<int> list(2);
    for (const int value : {10, 30, 10, 40})
    {
        list.Add(value);
    }
    list.Insert(1, list[3]); // an element of the list itself
    EXPECT_EQ(1, list.IndexOf(40));
    EXPECT_EQ(3, list.IndexOf(10, 1));
    EXPECT_EQ(-1, list.IndexOf(10, 1, 2));
    EXPECT_TRUE(list.Remove(10));
    EXPECT_FALSE(list.Remove(99));
    list.RemoveAt(3);

    EXPECT_EQ((std::vector<int>{40, 30, 10}), std::vector<int>(list.begin(), list.end()));
    EXPECT_EQ(3, list.ToArray()->Length());
}

TEST(ListTests, ChecksItsArguments)
{
    EXPECT_THROW(List<int>(-1), ArgumentOutOfRangeException);
    EXPECT_THROW(List<int>(static_cast<const IEnumerable<int>&>(null)), ArgumentNullException);

    List<String> list;
    EXPECT_EQ(-1, list.IndexOf("a", -5, -5)) << "an empty list answers before any check";
    EXPECT_THROW(list.Insert(-1, "a"), ArgumentOutOfRangeException);
    EXPECT_THROW(list.Insert(1, "a"), ArgumentOutOfRangeException);
    EXPECT_THROW(list.Add(null), ArgumentNullException);

    list.Add("a");
    EXPECT_THROW(list.IndexOf("a", 1, 0), ArgumentOutOfRangeException);
    EXPECT_THROW(list.IndexOf("a", 0, 2), ArgumentOutOfRangeException);
    EXPECT_THROW(list.IndexOf("a", 2), ArgumentOutOfRangeException);
    EXPECT_THROW(list.IndexOf("a", std::numeric_limits<int>::min()), ArgumentOutOfRangeException);
    EXPECT_FALSE(list.Contains(null));
    EXPECT_FALSE(list.Remove(null));
}

TEST(ListTests, EqualsComparesElementByElement)
{
    List<String> left;
    left.Add("a");
    List<String> right(static_cast<const IEnumerable<String>&>(left));
    EXPECT_TRUE(left.Equals(right));
    right.Add("b");
    EXPECT_FALSE(left.Equals(right));
    EXPECT_FALSE(left.Equals(List<int>()));
    EXPECT_FALSE(left.Equals(null));
}

TEST(ListTests, AChangeInPlaceDoesNotEndAWalk)
{
    List<int> list;
    list.Add(1);
    const auto walk = list.GetEnumerator();
    list[0] = 2;
    EXPECT_TRUE(walk->MoveNext());
    EXPECT_EQ(2, walk->Current());
}

TEST(QueueTests, IsFirstInFirstOutAndNeitherRemovesNorFinds)
{
    Queue<String> queue;
    EXPECT_THROW(queue.Dequeue(), InvalidOperationException);
    EXPECT_THROW(queue.Peek(), InvalidOperationException);
    queue.Enqueue("a");
    queue.Add("b");
    EXPECT_FALSE(queue.Remove("a"));
    EXPECT_EQ(-1, queue.IndexOf("a"));
    EXPECT_EQ((*queue.ToArray())[1].Utf8(), "b");
    EXPECT_EQ(queue.Peek().Utf8(), "a");
    EXPECT_EQ(queue.Dequeue().Utf8(), "a");
    EXPECT_EQ(queue.Dequeue().Utf8(), "b");
    EXPECT_EQ(0, queue.Count());
}

TEST(QueueTests, ComparesSharedPointersByOwner)
{
    Queue<Sp<String>> queue;
    const Sp<String> owner(new String("a"));
    queue.Enqueue(owner);
    EXPECT_TRUE(queue.Contains(Sp<String>(owner)));
    EXPECT_FALSE(queue.Contains(Sp<String>(new String("a"))));
}

template <class D>
class DictionaryTests : public testing::Test
{
protected:
    D dictionary;
};

using Dictionaries = testing::Types<Dictionary<String, String>, SortedDictionary<String, String>>;
TYPED_TEST_SUITE(DictionaryTests, Dictionaries);

TYPED_TEST(DictionaryTests, ReadingAMissingKeyAddsItUnlessConst)
{
    const TypeParam& readOnly = this->dictionary;
    EXPECT_THROW(readOnly["a"], ArgumentException);
    EXPECT_EQ(0, readOnly.Count());

    EXPECT_EQ(this->dictionary["a"].Utf8(), "");
    EXPECT_EQ(1, readOnly.Count());
    this->dictionary["a"] = "1";
    EXPECT_EQ(readOnly["a"].Utf8(), "1");
}

TYPED_TEST(DictionaryTests, RemovesByKeyAndByPair)
{
    using Pair = KeyValuePair<String, String>;
    this->dictionary.Add("a", "1");
    EXPECT_THROW(this->dictionary.Add("a", "2"), ArgumentException);

    String value = "untouched";
    EXPECT_FALSE(this->dictionary.TryGetValue("b", value));
    EXPECT_EQ(value.Utf8(), "untouched");
    EXPECT_TRUE(this->dictionary.TryGetValue("a", value));
    EXPECT_EQ(value.Utf8(), "1");

    EXPECT_FALSE(this->dictionary.Remove(Pair("a", "2")));
    EXPECT_TRUE(this->dictionary.Remove(Pair("a", "1")));
    EXPECT_FALSE(this->dictionary.Remove("a"));
}

TYPED_TEST(DictionaryTests, RefusesNull)
{
    const String& noText = null;
    String value;
    EXPECT_THROW(this->dictionary.Add(noText, "1"), ArgumentNullException);
    EXPECT_THROW(this->dictionary.Add("a", noText), ArgumentNullException);
    EXPECT_THROW(this->dictionary[noText], ArgumentNullException);
    EXPECT_THROW(this->dictionary.ContainsKey(noText), ArgumentNullException);
    EXPECT_THROW(this->dictionary.TryGetValue(noText, value), ArgumentNullException);
    EXPECT_THROW(TypeParam(static_cast<const IDictionary<String, String>&>(null)), ArgumentNullException);
    EXPECT_EQ(0, this->dictionary.Count());
}

TYPED_TEST(DictionaryTests, KeysAndValuesStandInWalkOrder)
{
    for (const char* key : {"c", "a", "b"})
    {
        this->dictionary.Add(key, String(key) + "!");
    }
    const TypeParam copy(static_cast<const IDictionary<String, String>&>(this->dictionary));
    const auto keys = copy.Keys();
    const auto values = copy.Values();
    ASSERT_EQ(3, keys->Count());
    for (int i = 0; i < 3; i++)
    {
        EXPECT_EQ(copy[(*keys)[i]], (*values)[i]);
    }
}

namespace
{
class Descending : public IComparer<int>
{
public:
    int Compare(const int& left, const int& right) const override
    {
        return right - left;
    }
};

std::string KeysOf(const SortedDictionary<int, String>& dictionary)
{
    std::string text;
    for (const auto& [key, value] : dictionary)
    {
        text += std::to_string(key);
    }
    return text;
}
} // namespace

TEST(SortedDictionaryTests, WalksInTheOrderOfItsComparer)
{
    SortedDictionary<int, String> ascending;
    SortedDictionary<int, String> descending(Sp<IComparer<int>>(new Descending));
    for (const int key : {2, 3, 1})
    {
        ascending[key] = "";
        descending[key] = "";
    }
    EXPECT_EQ("123", KeysOf(ascending));
    EXPECT_EQ("321", KeysOf(descending));
    EXPECT_THROW((SortedDictionary<int, String>(Sp<IComparer<int>>())), ArgumentNullException);
}

TEST(KeyValuePairTests, ComparesBothParts)
{
    using Pair = KeyValuePair<int, String>;
    EXPECT_TRUE(Pair(1, "a").Equals(Pair(1, "a")));
    EXPECT_FALSE(Pair(1, "a").Equals(Pair(1, "b")));
    EXPECT_FALSE(Pair(1, "a").Equals(Pair(2, "a")));
    EXPECT_FALSE(Pair(1, "a").Equals(null));
    EXPECT_EQ(Pair(1, "a").ToString().Utf8(), "[1, a]");
}
