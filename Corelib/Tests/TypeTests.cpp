#include <Tests/Support/CoreTest.h>

#include <Core/System/Collections/Generic/List.h>

namespace
{
enum class Colour;

template <class T>
struct Holder
{
};
} // namespace

TEST(TypeTests, NamesReadAsInTheSource)
{
    using Row = std::tuple<const std::type_info&, const char*>;
    const Row rows[] = {{typeid(String), "Tesmo::System::String"},
                        {typeid(Sp<String>), "Tesmo::Sp<Tesmo::System::String>"},
                        {typeid(Sp<const String>), "Tesmo::Sp<Tesmo::System::String>"},
                        {typeid(String**), "Tesmo::System::String"},
                        {typeid(const char*), "char"},
                        {typeid(Delegate<void>), "Tesmo::System::Delegate<void>"},
                        {typeid(Delegate<void, std::nullptr_t, std::nullptr_t>), "Tesmo::System::Delegate<void>"},
                        {typeid(std::tuple<int, std::nullptr_t>), "std::tuple<int>"},
                        {typeid(Collections::Generic::List<Sp<String>>),
                         "Tesmo::System::Collections::Generic::List<Tesmo::Sp<Tesmo::System::String> >"},
                        {typeid(int), "int"}};
    for (const auto& [info, name] : rows)
    {
        EXPECT_EQ(name, Type(info).ToString().Utf8());
    }
    EXPECT_EQ(std::string::npos, Type(typeid(Holder<Colour>)).ToString().Utf8().find("enum "));
    EXPECT_NE(std::string::npos, Type(typeid(Holder<std::nullptr_t>)).ToString().Utf8().find("std::nullptr_t"));
}

TEST(TypeTests, SplitsANameAtTheLastColonsBeforeTheArguments)
{
    const Type list(typeid(Collections::Generic::List<String>));
    ExpectTexts({TextRow{"List<Tesmo::System::String>", list.Name()},
                 TextRow{"Tesmo::System::Collections::Generic", list.Namespace()},
                 TextRow{"int", Type(typeid(int)).Name()}, TextRow{"int", Type(typeid(int)).Namespace()}});
}

TEST(TypeTests, EqualsComparesClassesAndOfObjectsTheIdentity)
{
    const String text;
    const Object& object = text;

    EXPECT_TRUE(object.GetType().Equals(Type(typeid(String))));
    EXPECT_FALSE(object.GetType().Equals(Type(typeid(Object))));
    EXPECT_TRUE(Type().Equals(Type().GetType()));
    EXPECT_FALSE(Type().Equals(null) || Type().Equals(text));

    const Object one;
    EXPECT_TRUE(one.Equals(one));
    EXPECT_FALSE(one.Equals(Object()) || one.Equals(null));
    EXPECT_EQ("Tesmo::System::EventArgs", EventArgs().ToString().Utf8());
}
