#include <Core/System/ArgumentNullException.h>
#include <Core/System/Array.h>
#include <Core/System/Char.h>
#include <Core/System/Collections/Generic/List.h>
#include <Core/System/Double.h>
#include <Core/System/EventHandler.h>
#include <Core/System/Int64.h>
#include <Core/System/Sp.h>
#include <Core/System/String.h>
#include <Core/System/Type.h>
#include <Core/System/UInt64.h>

#include <gtest/gtest.h>

#include <limits>
#include <tuple>

using namespace Tesmo;
using namespace Tesmo::System;

namespace
{
enum class Colour
{
    Red
};

template <class T>
struct Holder
{
};

/// A plain class of the tree without a text of its own.
class Nameless : public Object
{
};
} // namespace

TEST(TypeTests, NamesReadAsInTheSource)
{
    struct Row
    {
        const std::type_info& info;
        const char* name;
    };
    const Row rows[] = {
        {typeid(String), "Tesmo::System::String"},
        {typeid(Sp<String>), "Tesmo::Sp<Tesmo::System::String>"},
        {typeid(Sp<const String>), "Tesmo::Sp<Tesmo::System::String>"},
        {typeid(String**), "Tesmo::System::String"},
        {typeid(const char*), "char"},
        {typeid(Delegate<void>), "Tesmo::System::Delegate<void>"},
        {typeid(Delegate<void, std::nullptr_t, std::nullptr_t>), "Tesmo::System::Delegate<void>"},
        {typeid(std::tuple<int, std::nullptr_t>), "std::tuple<int>"},
        {typeid(Collections::Generic::List<Sp<String>>),
         "Tesmo::System::Collections::Generic::List<Tesmo::Sp<Tesmo::System::String> >"},
        {typeid(int), "int"},
    };
    for (const Row& row : rows)
    {
        EXPECT_EQ(row.name, Type(row.info).ToString().Utf8());
    }
    EXPECT_EQ(std::string::npos, Type(typeid(Holder<Colour>)).ToString().Utf8().find("enum "));
    EXPECT_NE(std::string::npos, Type(typeid(Holder<std::nullptr_t>)).ToString().Utf8().find("std::nullptr_t"));
}

TEST(TypeTests, SplitsANameAtTheLastColonsBeforeTheArguments)
{
    const Type list(typeid(Collections::Generic::List<String>));
    EXPECT_EQ("List<Tesmo::System::String>", list.Name().Utf8());
    EXPECT_EQ("Tesmo::System::Collections::Generic", list.Namespace().Utf8());

    const Type primitive(typeid(int));
    EXPECT_EQ("int", primitive.Name().Utf8());
    EXPECT_EQ("int", primitive.Namespace().Utf8());
}

TEST(TypeTests, EqualsComparesClasses)
{
    const String text;
    const Object& object = text;

    EXPECT_TRUE(object.GetType().Equals(Type(typeid(String))));
    EXPECT_FALSE(object.GetType().Equals(Type(typeid(Object))));
    EXPECT_TRUE(Type().Equals(Type().GetType()));
    EXPECT_FALSE(Type().Equals(static_cast<const Object&>(null)));
    EXPECT_FALSE(Type().Equals(text));
    EXPECT_THROW(Type(static_cast<const Type&>(null)), ArgumentNullException);
}

TEST(ObjectTests, DefaultsAreIdentityAndTheNameOfTheClass)
{
    const Nameless one;
    const Nameless two;

    EXPECT_TRUE(one.Equals(one));
    EXPECT_FALSE(one.Equals(two));
    EXPECT_FALSE(one.Equals(null));
    EXPECT_EQ("Nameless", one.ToString().Utf8().substr(one.ToString().Utf8().rfind(':') + 1));
}

TEST(ValueTypeTests, EqualsComparesNumbersOfAnyClassWithTheirSigns)
{
    const Int64 minusOne(-1);
    const UInt64 allOnes(std::numeric_limits<std::uint64_t>::max());

    EXPECT_FALSE(minusOne.Equals(allOnes));
    EXPECT_FALSE(allOnes.Equals(minusOne));
    EXPECT_TRUE(Char(U'A').Equals(Int64(65)));
    EXPECT_TRUE(UInt64(7).Equals(Double(7.0)));
    EXPECT_FALSE(Int64(0).Equals(static_cast<const ValueType&>(null)));
    EXPECT_FALSE(Int64(7).Equals(String("7")));
}
