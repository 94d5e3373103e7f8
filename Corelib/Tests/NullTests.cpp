// Compiled once for each level of optimisation: compilers take for granted that no reference is null.
#include <Core/System/IComparable.h>
#include <Core/System/IHashable.h>
#include <Core/System/Int32.h>
#include <Core/System/Sp.h>
#include <Core/System/String.h>

#include <gtest/gtest.h>

using namespace Tesmo;
using namespace Tesmo::System;

namespace
{
class Abstract
{
public:
    virtual int Operation() const = 0;

protected:
    ~Abstract() = default;
};

struct Padding
{
    virtual ~Padding() = default;
    int fields[100] = {};
};

class Concrete : public Padding, public Abstract
{
public:
    int Operation() const override
    {
        return 1;
    }
};

struct Plain
{
    int number = 0;
};

template <class T>
bool ReceivesNull(const T& reference)
{
    return IsNull(reference);
}

/// Hands a String on under each of its bases.
int CountNullBases(const String& text)
{
    return int{ReceivesNull<String>(text)} + int{ReceivesNull<Object>(text)} + int{ReceivesNull<IHashable>(text)} +
           int{ReceivesNull<ICloneable>(text)} + int{ReceivesNull<IComparable>(text)} +
           int{ReceivesNull<IConvertible>(text)} + int{ReceivesNull<Collections::Generic::IEnumerable<char32>>(text)};
}

bool IsNullBehindBigBase(const Concrete& object)
{
    return ReceivesNull<Abstract>(object);
}
} // namespace

TEST(NullTests, NullIsNullUnderEveryClassAndBase)
{
    EXPECT_TRUE(ReceivesNull<String>(null));
    EXPECT_TRUE(ReceivesNull<Abstract>(null));
    EXPECT_TRUE(ReceivesNull<Plain>(null));
    EXPECT_TRUE(ReceivesNull<Sp<String>>(null));
    EXPECT_EQ(7, CountNullBases(null));
    EXPECT_TRUE(IsNullBehindBigBase(null));
}

TEST(NullTests, AnObjectIsNeverNull)
{
    static const String global = "global";
    const String local;
    const Up<String> heap(new String("heap"));
    const Concrete object;
    const Plain plain;

    EXPECT_EQ(0, CountNullBases(global));
    EXPECT_EQ(0, CountNullBases(local));
    EXPECT_EQ(0, CountNullBases(*heap));
    EXPECT_FALSE(IsNullBehindBigBase(object));
    EXPECT_FALSE(IsNull(plain));
    EXPECT_FALSE(IsNull(null)); // the constant itself is an object
}

TEST(NullTests, OperationsDecideAboutNullAtTheirHead)
{
    const String text = "text";

    EXPECT_FALSE(text == static_cast<const String&>(null));
    EXPECT_EQ(1, text.CompareTo(null));
    EXPECT_FALSE(Int32(0).Equals(static_cast<const Object&>(null))); // a null reads as zero where a check is missing
    EXPECT_THROW(Sp<String>(static_cast<const Sp<String>&>(null)), std::exception);
}
