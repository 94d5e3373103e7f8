#include "CoreTest.h"

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

int Thrice(int number)
{
    return 3 * number;
}

std::string CallsOf(const Delegate<void, int>& delegate, std::string& log)
{
    log.clear();
    delegate.Invoke(1);
    return log;
}
} // namespace

TEST(DelegateTests, CallsEachFunctionInOrderAndGivesTheLastResult)
{
    std::string log;
    Derived recorder(log);
    Delegate<void, int> actions(recorder, &Derived::A);
    actions += Delegate<void, int>(recorder, &Derived::B);
    actions += actions;
    EXPECT_EQ("A1B1A1B1", CallsOf(actions, log));

    const Derived& constant = recorder;
    Delegate<int, int> functions(constant, &Derived::Twice);
    functions += &Thrice;
    EXPECT_EQ(21, functions.Invoke(7));
}

TEST(DelegateTests, AnEmptyListDoesNothing)
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

TEST(DelegateTests, RemovesTheLastRunThatEquals)
{
    std::string log;
    Recorder recorder(log);
    Recorder stranger(log);
    const Delegate<void, int> a(recorder, &Recorder::A);
    const Delegate<void, int> b(recorder, &Recorder::B);
    Delegate<void, int> actions(a);
    actions += b;
    actions += a;

    actions -= Delegate<void, int>(stranger, &Recorder::A);
    EXPECT_EQ("A1B1A1", CallsOf(actions, log));
    actions -= a;
    EXPECT_EQ("A1B1", CallsOf(actions, log));
    const auto& itself = actions;
    actions -= itself;
    EXPECT_TRUE(actions == null);
}

TEST(DelegateTests, EqualsComparesObjectsAndFunctionsInOrder)
{
    std::string log;
    Recorder recorder(log);
    Recorder stranger(log);
    Delegate<void, int> ab(recorder, &Recorder::A);
    ab += Delegate<void, int>(recorder, &Recorder::B);
    Delegate<void, int> ba(recorder, &Recorder::B);
    ba += Delegate<void, int>(recorder, &Recorder::A);
    const Delegate<void, int> copy(ab);

    EXPECT_TRUE(ab.Equals(copy));
    EXPECT_FALSE(ab.Equals(ba));
    EXPECT_FALSE(Delegate(recorder, &Recorder::A).Equals(Delegate(stranger, &Recorder::A)));
    EXPECT_FALSE(ab.Equals(null));
    EXPECT_FALSE(ab.Equals(String("no delegate")));
}

TEST(DelegateTests, CopiesAreIndependent)
{
    std::string log;
    Recorder recorder(log);
    Delegate<void, int> original(recorder, &Recorder::A);
    const Delegate<void, int> copy(original);
    original += copy;

    EXPECT_EQ("A1", CallsOf(copy, log));
}

TEST(DelegateTests, AnEventHandlerTakesNullAsSender)
{
    struct Listener
    {
        void Handle(const Object& sender, const EventArgs&)
        {
            wasNull = IsNull(sender);
        }
        bool wasNull = false;
    };
    Listener listener;
    const EventHandler handler(listener, &Listener::Handle);

    handler.Invoke(null, EventArgs());

    EXPECT_TRUE(listener.wasNull);
}
