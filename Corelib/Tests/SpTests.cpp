#include <Tests/Support/CoreTest.h>

#include <Core/System/Ref.h>

template <int Value>
struct Base
{
    virtual ~Base() = default;
    int value = Value;
};

struct Tracked : Base<1>, Base<2>
{
    explicit Tracked(std::atomic<int>& counter) : destroyed(counter) {}
    ~Tracked() override
    {
        destroyed++;
    }
    std::atomic<int>& destroyed;
};

/// Throws std::exception itself, which carries no text.
const auto throwsPlainException = testing::Throws<std::exception>(
    testing::Truly([](const std::exception& failure) { return typeid(failure) == typeid(std::exception); }));
TEST(SpTests, EmptyPointersAndNullSourcesThrowPlainExceptions)
{
    const auto& nothing = static_cast<const Sp<String>&>(null);
    Sp<String> kept(new String("kept"));
    const Sp<String> shared(static_cast<String*>(nullptr));
    const Up<String> sole;
    const Up<char[]> array;
    const Ref<String> link(null);

    EXPECT_TRUE(shared == null && sole == null && array == null && link == null);
    EXPECT_THAT([&] { shared->Length(); }, throwsPlainException);
    EXPECT_THAT([&] { *shared; }, throwsPlainException);
    EXPECT_THAT([&] { sole->Length(); }, throwsPlainException);
    EXPECT_THAT([&] { array[0]; }, throwsPlainException);
    EXPECT_THAT([&] { link->Length(); }, throwsPlainException);
    EXPECT_THAT([&] { Sp<String> copy(nothing); }, throwsPlainException);
    EXPECT_THAT([&] { kept = nothing; }, throwsPlainException);
    EXPECT_EQ(String("kept"), *kept);
}

TEST(SpTests, TheLastOwnerOnAnyThreadDeletesTheObjectOnceAndAnAssignmentToItselfDoesNot)
{
    std::atomic<int> destroyed = 0;
    Sp<Tracked> first(new Tracked(destroyed));
    const Sp<Tracked>& alias = first;
    first = alias;
    first = Sp<Tracked>(first);
    EXPECT_EQ(1U, first.UseCount());
    EXPECT_EQ(0, destroyed);
    first.Reset(new Tracked(destroyed));
    EXPECT_EQ(1, destroyed);
    {
        const auto copyAround = [shared = std::move(first)]
        {
            for (int round = 0; round < 1000; round++)
            {
                const Sp<Base<2>> base = shared;
                EXPECT_EQ(2, base->value);
            }
        };
        EXPECT_TRUE(first == null); // NOLINT(bugprone-use-after-move): that it is empty is the point
        const std::jthread threads[] = {std::jthread(copyAround), std::jthread(copyAround), std::jthread(copyAround)};
        EXPECT_EQ(1, destroyed);
    }
    EXPECT_EQ(2, destroyed);
}

TEST(UpTests, OwnershipMovesAndEndsWithTheOwnerNotWithALink)
{
    std::atomic<int> destroyed = 0;
    {
        Up<Tracked> first(new Tracked(destroyed));
        EXPECT_EQ(first.Get(), &*Ref<Tracked>(*first));
        Up<Base<2>> base(std::move(first));
        EXPECT_EQ(2, base->value);
        const Sp<Base<2>> shared(std::move(base));
        EXPECT_TRUE(base == null); // NOLINT(bugprone-use-after-move): that it is empty is the point
        EXPECT_EQ(0, destroyed);
    }
    EXPECT_EQ(1, destroyed);
}
