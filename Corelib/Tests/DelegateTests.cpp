#include <Tests/Support/CoreTest.h>

#include <Core/System/Delegate.h>
#include <Core/System/EventHandler.h>

using namespace Tesmo;
using namespace Tesmo::System;

namespace
{
struct Unrelated
{
    virtual ~Unrelated() = default;
    int padding = 0;
};

/// Writes down in which order it is called.
class Recorder
{
public:
    explicit Recorder(std::string& calls) : log(calls) {}

    void A(int number)
    {
        log += "A" + std::to_string(number);
    }
    void B(int number)
    {
        log += "B" + std::to_string(number);
    }
    int Twice(int number) const
    {
        return 2 * number;
    }

protected:
    std::string& log;
};

class Derived : public Unrelated, public Recorder
{
public:
    using Recorder::Recorder;
};

class DelegateTests : public testing::Test
{
protected:
    std::string CallsOf(const Delegate<void, int>& delegate)
    {
        log.clear();
        delegate.Invoke(1);
        return log;
    }

    std::string log;
    Derived recorder{log};
    Recorder stranger{log};
    const Delegate<void, int> a{recorder, &Derived::A};
    const Delegate<void, int> b{recorder, &Derived::B};
};
} // namespace

TEST_F(DelegateTests, CallsEachFunctionInOrderAndGivesTheLastResult)
{
    Delegate<void, int> actions(a);
    const Delegate<void, int> copy(actions);
    actions += b;
    actions += actions;
    EXPECT_EQ("A1B1A1B1", CallsOf(actions));
    EXPECT_EQ("A1", CallsOf(copy)); // a copy has a list of its own

    const Derived& constant = recorder;
    Delegate<int, int> functions(constant, &Derived::Twice);
    functions += +[](int number) { return 3 * number; };
    EXPECT_EQ(21, functions.Invoke(7));
}

TEST_F(DelegateTests, AnEmptyListDoesNothing)
{
    const Delegate<int, int> empty;
    Delegate<void, int> emptied(null);
    const auto& itself = emptied;
    emptied -= itself;
    const Delegate<void> unbound(static_cast<void (*)()>(nullptr));

    EXPECT_TRUE(empty == null && emptied == null && unbound == null);
    EXPECT_EQ(0, empty.Invoke(5));
    EXPECT_NO_THROW(emptied.Invoke(5));
}

TEST_F(DelegateTests, RemovesTheLastRunThatEquals)
{
    Delegate<void, int> actions(a);
    actions += b;
    actions += a;

    actions -= Delegate<void, int>(stranger, &Recorder::A);
    EXPECT_EQ("A1B1A1", CallsOf(actions));
    actions -= a;
    EXPECT_EQ("A1B1", CallsOf(actions));
    const auto& itself = actions;
    actions -= itself;
    EXPECT_TRUE(actions == null);
}

TEST_F(DelegateTests, EqualsComparesObjectsAndFunctionsInOrder)
{
    Delegate<void, int> ab(a);
    ab += b;
    Delegate<void, int> ba(b);
    ba += a;

    EXPECT_TRUE(ab.Equals(Delegate<void, int>(ab)));
    EXPECT_FALSE(ab.Equals(ba));
    EXPECT_FALSE(a.Equals(Delegate(stranger, &Recorder::A)));
    EXPECT_FALSE(ab.Equals(null));
    EXPECT_FALSE(ab.Equals(String("no delegate")));
}

TEST_F(DelegateTests, AnEventHandlerTakesNullAsSender)
{
    static bool wasNull = false;
    const EventHandler handler(+[](const Object& sender, const EventArgs&) { wasNull = IsNull(sender); });

    handler.Invoke(null, EventArgs());

    EXPECT_TRUE(wasNull);
}

namespace
{
/// Handlers that change the event that is being raised.
class Subscriber
{
public:
    void Change()
    {
        log += "C";
        *event -= Action<>(*this, &Subscriber::Other);
        for (int i = 0; i < 20; i++) // enough to move the list elsewhere
        {
            *event += Action<>(*this, &Subscriber::Other);
        }
    }
    void Other()
    {
        log += "O";
    }
    void End()
    {
        log += "E";
        event.Reset(nullptr);
    }
    void Last()
    {
        log += "L";
    }

    std::string log;
    Up<Action<>> event{new Action<>};
};
} // namespace

TEST_F(DelegateTests, ACallGoesOnWithTheListAsItBegan)
{
    Subscriber subscriber;
    for (const auto change : {&Subscriber::Change, &Subscriber::End})
    {
        *subscriber.event = Action<>(subscriber, change);
        *subscriber.event += Action<>(subscriber, &Subscriber::Other);
        *subscriber.event += Action<>(subscriber, &Subscriber::Last);
        subscriber.event->Invoke();
    }
    EXPECT_EQ("COLEOL", subscriber.log);
}
