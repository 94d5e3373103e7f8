#include <Tests/Support/CoreTest.h>

namespace
{
std::string calls;

struct Unrelated
{
    virtual ~Unrelated() = default;
    int padding = 0;
};

struct Recorder
{
    void Note(int number)
    {
        calls += "A" + std::to_string(number);
    }
    int Twice(int number) const
    {
        return 2 * number;
    }
};

struct Derived : Unrelated, Recorder
{
};

using Notes = Delegate<void, int>;

std::string CallsOf(const Notes& delegate)
{
    calls.clear();
    delegate.Invoke(1);
    return calls;
}

Derived recorder;
Recorder stranger;
const Notes a(recorder, &Derived::Note);
const Notes b(+[](int number) { calls += "B" + std::to_string(number); });
const Notes strange(stranger, &Recorder::Note);
} // namespace

TEST(DelegateTests, CallsEachFunctionInOrderAndGivesTheLastResult)
{
    Notes actions(a);
    const Notes copy(actions);
    actions += b;
    actions += actions;
    EXPECT_EQ("A1B1A1B1", CallsOf(actions));
    EXPECT_EQ("A1", CallsOf(copy)); // a copy has a list of its own

    const Derived& constant = recorder;
    Delegate<int, int> functions(constant, &Derived::Twice);
    functions += +[](int number) { return 3 * number; };
    EXPECT_EQ(21, functions.Invoke(7));
}

TEST(DelegateTests, RemovesTheLastRunThatEqualsAndAnEmptyListDoesNothing)
{
    Notes actions(null);
    EXPECT_TRUE(actions == null);
    EXPECT_EQ("", CallsOf(actions));
    const Notes& itself = actions;
    actions -= itself;
    actions += a;
    actions += b;
    actions += a;

    actions -= strange;
    EXPECT_EQ("A1B1A1", CallsOf(actions));
    actions -= a;
    EXPECT_EQ("A1B1", CallsOf(actions));
    actions -= itself;
    EXPECT_TRUE(actions == null && Delegate<void>(static_cast<void (*)()>(nullptr)) == null);
    EXPECT_EQ(0, (Delegate<int, int>().Invoke(5)));
}

TEST(DelegateTests, EqualsComparesObjectsAndFunctionsInOrder)
{
    Notes ab(a);
    ab += b;
    Notes ba(b);
    ba += a;

    EXPECT_TRUE(ab.Equals(Notes(ab)));
    EXPECT_FALSE(ab.Equals(ba) || ab.Equals(null) || a.Equals(strange) || ab.Equals(String("no delegate")));
}

TEST(DelegateTests, ACallGoesOnWithTheListAsItBegan)
{
    static Up<Action<>> event;
    static const Action<> other(+[] { calls += "O"; });
    const Action<> last(+[] { calls += "L"; });
    const Action<> change(+[]
                          {
                              calls += "C";
                              *event -= other;
                              for (int i = 0; i < 20; i++) // enough to move the list elsewhere
                              {
                                  *event += other;
                              }
                          });
    const Action<> end(+[] { calls += "E", event.Reset(nullptr); });
    calls.clear();
    for (const Action<>& first : {change, end})
    {
        event.Reset(new Action<>(first));
        *event += other;
        *event += last;
        event->Invoke();
    }
    EXPECT_EQ("COLEOL", calls);
}
