#include "CoreTest.h"

#include <Core/System/Ref.h>
#include <Core/System/Sp.h>
#include <Core/System/Up.h>

#include <future>
#include <thread>
#include <typeinfo>

using namespace Tesmo;
using namespace Tesmo::System;

namespace
{
struct Left
{
    virtual ~Left() = default;
    int left = 1;
};

struct Right
{
    virtual ~Right() = default;
    int right = 2;
};

struct Tracked : Left, Right
{
    explicit Tracked(std::atomic<int>& counter) : destroyed(counter) {}
    ~Tracked() override
    {
        destroyed++;
    }
    std::atomic<int>& destroyed;
};

/// Runs action; true if it throws std::exception itself, which carries no text.
template <class Action>
bool ThrowsPlainException(Action action)
{
    try
    {
        action();
    }
    catch (const std::exception& failure)
    {
        return typeid(failure) == typeid(std::exception);
    }
    return false;
}
} // namespace

TEST(SpTests, EmptyPointersThrowPlainExceptions)
{
    const Sp<String> shared(static_cast<String*>(nullptr));
    const Up<String> sole;
    const Up<char[]> array;
    const Ref<String> link(null);

    EXPECT_TRUE(shared == null && sole == null && array == null && link == null);
    EXPECT_TRUE(ThrowsPlainException([&] { shared->Length(); }));
    EXPECT_TRUE(ThrowsPlainException([&] { *shared; }));
    EXPECT_TRUE(ThrowsPlainException([&] { sole->Length(); }));
    EXPECT_TRUE(ThrowsPlainException([&] { array[0]; }));
    EXPECT_TRUE(ThrowsPlainException([&] { link->Length(); }));
}

TEST(SpTests, NullAsSourceOfACopyThrows)
{
    const auto& nothing = static_cast<const Sp<String>&>(null);
    Sp<String> kept(new String("kept"));

    EXPECT_TRUE(ThrowsPlainException([&] { Sp<String> copy(nothing); }));
    EXPECT_TRUE(ThrowsPlainException([&] { kept = nothing; }));
    EXPECT_EQ(String("kept"), *kept);
}

TEST(SpTests, TheLastOwnerDeletesTheObjectOnce)
{
    std::atomic<int> destroyed = 0;
    Sp<Tracked> first(new Tracked(destroyed));
    {
        const Sp<Right> base = first;
        EXPECT_EQ(2, base->right);
        EXPECT_EQ(2U, first.UseCount());
        first.Reset(nullptr);
        EXPECT_TRUE(first == null);
        EXPECT_EQ(0, destroyed);
    }
    EXPECT_EQ(1, destroyed);
}

TEST(SpTests, AssigningAnSpToItselfKeepsTheObject)
{
    std::atomic<int> destroyed = 0;
    Sp<Tracked> owner(new Tracked(destroyed));
    const Sp<Tracked>& alias = owner;

    owner = alias;
    owner = Sp<Tracked>(owner);

    EXPECT_EQ(0, destroyed);
    EXPECT_EQ(1U, owner.UseCount());
    owner.Reset(new Tracked(destroyed));
    EXPECT_EQ(1, destroyed);
}

TEST(SpTests, CopiesMayBeReleasedOnAnyThread)
{
    constexpr int Threads = 4;
    std::atomic<int> destroyed = 0;
    Sp<Tracked> shared(new Tracked(destroyed));
    std::promise<void> start;
    const std::shared_future<void> started = start.get_future().share();
    std::vector<std::thread> threads;
    for (int i = 0; i < Threads; i++)
    {
        threads.emplace_back(
            [started, copy = shared]() mutable
            {
                started.wait();
                for (int round = 0; round < 1000; round++)
                {
                    Sp<Tracked> another(copy);
                }
                copy.Reset(nullptr);
            });
    }
    start.set_value();
    shared.Reset(nullptr);
    for (std::thread& thread : threads)
    {
        thread.join();
    }

    EXPECT_EQ(1, destroyed);
}

TEST(UpTests, OwnershipMovesAndEndsWithTheOwner)
{
    std::atomic<int> destroyed = 0;
    {
        Up<Tracked> first(new Tracked(destroyed));
        Up<Left> base(std::move(first));
        EXPECT_EQ(1, base->left);
        const Sp<Left> shared(std::move(base));
        EXPECT_TRUE(base == null); // NOLINT(bugprone-use-after-move): that it is empty is the point
        EXPECT_EQ(0, destroyed);
    }
    EXPECT_EQ(1, destroyed);
}

TEST(RefTests, ALinkDoesNotDelete)
{
    std::atomic<int> destroyed = 0;
    Tracked object(destroyed);
    {
        const Ref<Tracked> link(object);
        EXPECT_EQ(&object, &*link);
    }
    EXPECT_EQ(0, destroyed);
}
