#include <Tests/Support/CoreTest.h>

#include <Core/System/Collections/Generic/Dictionary.h>
#include <Core/System/Collections/Generic/Queue.h>
#include <Core/System/Collections/Generic/SortedDictionary.h>

using namespace Tesmo::System::Collections::Generic;

namespace
{
const String& noText = null;

/// The element with a number, for collections of every kind.
template <class T>
T Element(int number)
{
    if constexpr (std::is_same_v<T, int>)
    {
        return number;
    }
    else if constexpr (std::is_same_v<T, String>)
    {
        return String(std::to_string(number));
    }
    else
    {
        return T(Element<std::decay_t<decltype(T().Key())>>(number),
                 Element<std::decay_t<decltype(T().Value())>>(number));
    }
}

template <class T>
T ElementOf(const ICollection<T>&);

/// The rules that hold for every collection, here with the elements 1 to 20; none is the default value.
template <class C>
class CollectionTests : public testing::Test
{
protected:
    using Held = decltype(ElementOf(std::declval<C>()));

    CollectionTests()
    {
        for (int number = 1; number <= 20; number++)
        {
            filled.Add(Element<Held>(number));
        }
    }

    C filled;
};

using AllCollections =
    testing::Types<List<int>, List<String>, Queue<int>, Queue<String>, Dictionary<String, String>, Dictionary<int, int>,
                   SortedDictionary<int, String>, SortedDictionary<String, int>>;
} // namespace
TYPED_TEST_SUITE(CollectionTests, AllCollections);

TYPED_TEST(CollectionTests, AWalkSeesEveryElementOnceAndNoneBeforeOrBehindThem)
{
    const TypeParam& collection = this->filled;
    EXPECT_FALSE(collection.IsReadOnly() || collection.IsSynchronized() || collection.IsFixedSize());
    EXPECT_EQ(static_cast<Object*>(&this->filled), &this->filled.SyncRoot());

    const auto walk = collection.GetEnumerator();
    EXPECT_TRUE(walk->MoveNext() && walk->MoveNext());
    walk->Reset();
    EXPECT_THROW(walk->Current(), InvalidOperationException);
    std::vector<typename TestFixture::Held> seen;
    while (walk->MoveNext())
    {
        EXPECT_TRUE(std::find(seen.begin(), seen.end(), walk->Current()) == seen.end());
        EXPECT_TRUE(collection.Contains(walk->Current()));
        seen.push_back(walk->Current());
    }
    EXPECT_EQ(20U, seen.size());
    EXPECT_FALSE(walk->MoveNext());
    EXPECT_THROW(walk->Current(), InvalidOperationException);
}

TYPED_TEST(CollectionTests, AChangeEndsAWalkUntilItIsReset)
{
    using T = typename TestFixture::Held;
    TypeParam& changed = this->filled;
    const TypeParam other(changed);
    std::vector<std::pair<int, std::function<void()>>> changes = {{21, [&] { changed.Add(Element<T>(0)); }},
                                                                  {20, [&] { changed = other; }},
                                                                  {0, [&] { changed.Clear(); }},
                                                                  {20, [&] { changed = TypeParam(other); }}};
    if constexpr (requires { changed.Dequeue(); })
    {
        changes.emplace_back(19, [&] { changed.Dequeue(); });
    }
    else
    {
        changes.emplace_back(19, [&] { EXPECT_TRUE(changed.Remove(Element<T>(1))); });
    }
    if constexpr (requires { changed.RemoveAt(0); })
    {
        changes.emplace_back(20, [&] { changed.Insert(0, Element<T>(0)); });
        changes.emplace_back(19, [&] { changed.RemoveAt(0); });
    }
    for (const auto& [count, change] : changes)
    {
        const auto walk = changed.GetEnumerator();
        change();
        EXPECT_THROW(walk->MoveNext(), InvalidOperationException) << "to " << count;
        EXPECT_EQ(count, changed.Count());
        EXPECT_EQ(count == 21, changed.Contains(Element<T>(0)) && changed.Contains(Element<T>(1)));
        walk->Reset();
        EXPECT_EQ(count > 0, walk->MoveNext());
    }
}

TYPED_TEST(CollectionTests, CopyToWritesAllElementsBehindTheIndex)
{
    using Target = Array<typename TestFixture::Held>;
    Target array(22);
    this->filled.CopyTo(array, 2);
    EXPECT_TRUE(array[0] == array[1] && !(array[1] == array[2]) && this->filled.Contains(array[21]));
    EXPECT_THROW(this->filled.CopyTo(array, -1), ArgumentOutOfRangeException);
    EXPECT_THROW(this->filled.CopyTo(array, 3), ArgumentException);
    EXPECT_THROW(this->filled.CopyTo(const_cast<Target&>(static_cast<const Target&>(null)), 0), ArgumentNullException);
}

TEST(ListTests, InsertsRemovesAndFinds)
{
    List<int> list(2);
    for (const int value : {10, 30, 10, 40})
    {
        list.Add(value);
    }
    EXPECT_EQ(3, list.IndexOf(40, 0));
    list.Insert(1, list[3]); // an element of the list itself
    EXPECT_TRUE(list.IndexOf(40) == 1 && list.IndexOf(10, 1) == 3 && list.IndexOf(30, 2, 1) == 2);
    EXPECT_EQ(-1, list.IndexOf(10, 1, 2));
    EXPECT_TRUE(!list.Remove(99) && list.Remove(10));
    list.RemoveAt(3);
    list.Insert(3, 50);
    const auto walk = list.GetEnumerator();
    list[0] = 20; // a change in place is none of the list
    EXPECT_TRUE(walk->MoveNext());
    EXPECT_EQ((std::vector<int>{20, 30, 10, 50}), std::vector<int>(list.begin(), list.end()));
    EXPECT_EQ(50, (*list.ToArray())[3]);
    List<int> copy(static_cast<const IEnumerable<int>&>(list));
    EXPECT_TRUE(list.Equals(copy));
    copy.RemoveAt(3);
    EXPECT_FALSE(list.Equals(copy) || list.Equals(List<String>()) || list.Equals(null));
}

TEST(ListTests, ChecksItsArguments)
{
    List<String> list;
    EXPECT_TRUE(IsNull(list[0])) << "a list that never held an element";
    EXPECT_EQ(-1, list.IndexOf("a", -5, -5)) << "an empty list answers before any check";
    list.Add("a");
    EXPECT_EQ(&list[0] + 1, &list[1]) << "the place behind the last element";
    EXPECT_FALSE(list.Contains(null) || list.Remove(null));
    for (const int index : {-1, 2})
    {
        ExpectEachThrows<ArgumentOutOfRangeException>(
            {[&] { list[index]; }, [&] { std::as_const(list)[index]; }, [&] { list.Insert(index, "a"); },
             [&] { list.RemoveAt(std::min(index, 1)); }, [&] { list.IndexOf("a", index); },
             [&] { list.IndexOf("a", 0, index); }, [&] { list.IndexOf("a", 1, 0); }, [] { List<int>(-1); }});
    }
    ExpectEachThrows<ArgumentNullException>({[&] { list.Add(null); }, [&] { list.Insert(0, null); },
                                             [] { List<int>(static_cast<const IEnumerable<int>&>(null)); }});
}

TEST(QueueTests, IsFirstInFirstOutAndNeitherRemovesNorFinds)
{
    Queue<Sp<String>> queue; // owners compare by identity
    const Sp<String> a(new String("a"));
    const Sp<String> b(new String("a"));
    ExpectEachThrows<InvalidOperationException>({[&] { queue.Dequeue(); }, [&] { queue.Peek(); }});
    EXPECT_THROW(queue.Enqueue(null), ArgumentNullException);
    queue.Enqueue(a);
    EXPECT_FALSE(queue.Contains(b) || queue.Remove(a));
    queue.Add(b);
    EXPECT_TRUE(queue.Contains(b) && (*queue.ToArray())[1] == b && queue.IndexOf(a) == -1);
    EXPECT_EQ(a, queue.Peek());
    EXPECT_EQ(a, queue.Dequeue());
    EXPECT_EQ(b, queue.Dequeue());
}

template <class D>
class DictionaryTests : public testing::Test
{
};

using Dictionaries = testing::Types<Dictionary<String, String>, SortedDictionary<String, String>>;
TYPED_TEST_SUITE(DictionaryTests, Dictionaries);

TYPED_TEST(DictionaryTests, FindsAndRemovesByKeyAndByPair)
{
    using Pair = KeyValuePair<String, String>;
    TypeParam dictionary;
    const TypeParam& readOnly = dictionary;
    const auto walk = readOnly.GetEnumerator();
    EXPECT_EQ(String(), dictionary["a"]); // added by reading
    EXPECT_THROW(walk->MoveNext(), InvalidOperationException);
    dictionary["a"] = "1";
    dictionary.Add(Pair("b", "2"));
    ExpectEachThrows<ArgumentException>({[&] { readOnly["c"]; }, [&] { dictionary.Add("a", "2"); }});

    String value = "untouched";
    EXPECT_FALSE(dictionary.TryGetValue("c", value) || dictionary.ContainsKey("c"));
    EXPECT_EQ(String("untouched"), value);
    EXPECT_TRUE(dictionary.TryGetValue("a", value) && value == String("1") && readOnly["a"] == value);

    const TypeParam copy(static_cast<const IDictionary<String, String>&>(dictionary));
    ASSERT_EQ(2, copy.Keys()->Count());
    for (const int i : {0, 1}) // keys and values stand in the order of a walk
    {
        EXPECT_EQ(copy[(*copy.Keys())[i]], (*copy.Values())[i]);
    }
    EXPECT_FALSE(dictionary.Contains(Pair("c", "1")) || dictionary.Contains(null) || dictionary.Remove(Pair("a", "2")));
    EXPECT_TRUE(dictionary.Remove(Pair("a", "1")) && dictionary.Remove("b"));
    EXPECT_FALSE(dictionary.Remove("a"));
}

TYPED_TEST(DictionaryTests, RefusesNull)
{
    TypeParam dictionary;
    String value;
    ExpectEachThrows<ArgumentNullException>(
        {[&] { dictionary.Add(noText, "1"); }, [&] { dictionary.Add("a", noText); }, [&] { dictionary.Add(null); },
         [&] { dictionary[noText]; }, [&] { std::as_const(dictionary)[noText]; },
         [&] { dictionary.ContainsKey(noText); }, [&] { dictionary.Remove(noText); },
         [&] { dictionary.TryGetValue(noText, value); },
         [] { TypeParam(static_cast<const IDictionary<String, String>&>(null)); }});
    EXPECT_EQ(0, dictionary.Count());
}

TEST(SortedDictionaryTests, WalksInTheOrderOfItsComparer)
{
    struct Descending : public IComparer<int>
    {
        int Compare(const int& left, const int& right) const override
        {
            return right - left;
        }
    };
    SortedDictionary<int, String> ascending;
    SortedDictionary<int, String> descending(Sp<IComparer<int>>(new Descending));
    for (const int key : {2, 3, 1})
    {
        ascending[key] = "";
        descending[key] = "";
    }
    EXPECT_TRUE((*ascending.Keys())[0] == 1 && (*ascending.Keys())[1] == 2 && (*descending.Keys())[0] == 3);
    EXPECT_THROW((SortedDictionary<int, String>(Sp<IComparer<int>>())), ArgumentNullException);
    const IComparer<int>& numbers = *Comparer<int>::Default();
    const IComparer<String>& texts = *Comparer<String>::Default();
    EXPECT_TRUE(numbers.Compare(2, 2) == 0 && numbers.Compare(1, 2) == -1 && numbers.Compare(2, 1) == 1);
    EXPECT_TRUE(texts.Compare("a", "a") == 0 && texts.Compare("a", "b") == -1);
    EXPECT_TRUE(texts.Compare(null, "") == -1 && texts.Compare("", null) == 1 && texts.Compare(null, null) == 0);
}

TEST(KeyValuePairTests, ComparesBothParts)
{
    using Pair = KeyValuePair<int, String>;
    const Pair pair(1, "a");
    EXPECT_TRUE(pair.Equals(Pair(1, "a")) && pair.ToString() == String("[1, a]"));
    EXPECT_FALSE(pair.Equals(Pair(1, "b")) || pair.Equals(Pair(2, "a")) || pair.Equals(null));
    EXPECT_EQ("[0, Tesmo::Sp<int>]", (KeyValuePair<int, Sp<int>>().ToString().Utf8()));
    EXPECT_EQ("[10000000000, 0.5]", (KeyValuePair<long long, double>(10000000000, 0.5).ToString().Utf8()));
    EXPECT_EQ("[True, 1e-07]", (KeyValuePair<bool, float>(true, 1e-7F).ToString().Utf8()));
}
