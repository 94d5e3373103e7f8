#include <Tests/Support/CoreTest.h>

#include <Core/System/Convert.h>
#include <Core/System/IntPtr.h>
#include <Core/System/UIntPtr.h>

TEST(WrapperTests, EachClassKnowsItsTypeCodeNameAndSign)
{
    using Row = std::tuple<Sp<Object>, int, const char*, bool>;
    const Row rows[] = {
        {Sp<Object>(new Char(char32(1))), 3, "Char", false},  {Sp<Object>(new Boolean(true)), 2, "Boolean", false},
        {Sp<Object>(new SByte(1)), 4, "SByte", true},         {Sp<Object>(new Byte(1)), 5, "Byte", false},
        {Sp<Object>(new Int16(1)), 6, "Int16", true},         {Sp<Object>(new UInt16(1)), 7, "UInt16", false},
        {Sp<Object>(new Int32(1)), 8, "Int32", true},         {Sp<Object>(new UInt32(1)), 9, "UInt32", false},
        {Sp<Object>(new Int64(1)), 10, "Int64", true},        {Sp<Object>(new UInt64(1)), 11, "UInt64", false},
        {Sp<Object>(new Single(1)), 12, "Single", true},      {Sp<Object>(new Double(1)), 13, "Double", true},
        {Sp<Object>(new DateTime(1)), 14, "DateTime", false},
    };
    for (const auto& [object, code, name, isSigned] : rows)
    {
        EXPECT_EQ(std::string("Tesmo::System::") + name, object->GetType().ToString().Utf8());
        EXPECT_EQ(code, static_cast<int>(dynamic_cast<const IConvertible&>(*object).GetTypeCode()));
        EXPECT_EQ(isSigned, dynamic_cast<const ValueType&>(*object).IsSigned());
        EXPECT_EQ(1, Convert::ToInt32(dynamic_cast<const IConvertible&>(*object)));
    }
}

TEST(WrapperTests, AWrapperWithoutAValueIsZeroAndEachIsItsPrimitive)
{
    EXPECT_TRUE(!Boolean() && SByte() == 0 && Byte() == 0 && Int16() == 0 && UInt16() == 0 && Int32() == 0);
    EXPECT_TRUE(UInt32() == 0 && Int64() == 0 && UInt64() == 0 && Single() == 0 && Double() == 0);
    EXPECT_TRUE(char32(Char()) == U'\0' && char32(Char(U'A')) == U'A' && Int32(7) + 1 == 8);
}

TEST(WrapperTests, EqualityLooksAtTheNumber)
{
    const auto equal = [](const ValueType& left, const ValueType& right)
    {
        EXPECT_EQ(left.Equals(right), right.Equals(left));
        return left.Equals(right);
    };
    EXPECT_TRUE(equal(Int32(7), UInt64(7)) && equal(Int32(0), UInt32(0)) && equal(Double(0), Int32(0)) &&
                equal(Char(U'A'), Int64(65)) && equal(UInt64(7), Double(7.0)));
    EXPECT_TRUE(equal(Int64(Int64::MinValue), Single(-9223372036854775808.0F)));
    EXPECT_TRUE(equal(Double(1.5), Single(1.5F)) && equal(Double(0.0), Double(-0.0)));
    EXPECT_TRUE(equal(Double(Double::NaN), Single(Single::NaN)));
    EXPECT_FALSE(equal(Int32(-1), UInt32(4294967295U)) || equal(Int64(-1), UInt64(UInt64::MaxValue)));
    EXPECT_FALSE(equal(Int32(1), Double(1.5)) || equal(Double(1.5), Double(1.25)) || equal(UInt32(1), Double(-1.0)));
    EXPECT_FALSE(equal(Int64(9007199254740993), Double(9007199254740992.0))); // no double is this number
    EXPECT_FALSE(equal(UInt64(UInt64::MaxValue), Double(18446744073709551616.0)));
    EXPECT_FALSE(equal(Int32(0), Double(Double::NaN)) || equal(DateTime(0), Single(Single::NegativeInfinity)));
    EXPECT_FALSE(Int32(1).Equals(static_cast<const Object&>(String("1"))));
    EXPECT_FALSE(Int32(0).Equals(static_cast<const Object&>(null)));
    EXPECT_FALSE(Double(0).Equals(static_cast<const ValueType&>(null)));
}

TEST(WrapperTests, ComparisonPutsSmallerNumbersFirstAndHashesFoldWhatIsWider)
{
    EXPECT_TRUE(Int32(-1).CompareTo(Int32(1)) == -1 && Int32(1).CompareTo(Int32(-1)) == 1 &&
                UInt64(5).CompareTo(UInt64(5)) == 0);
    EXPECT_TRUE(Int32(1).CompareTo(null) == 1 && Int32(1).CompareTo(Int64(2)) == 1);
    const Double nan(Double::NaN);
    EXPECT_TRUE(nan.CompareTo(Double(Double::NegativeInfinity)) < 0 && Double(0).CompareTo(nan) > 0);
    EXPECT_EQ(0, nan.CompareTo(nan));
    EXPECT_EQ((std::vector<int>{-5, 3, 0, 1, 0x3FF00000, 0x3F800000, Double(0.0).GetHashCode()}),
              (std::vector<int>{Int32(-5).GetHashCode(), Int64(0x0000000100000002).GetHashCode(),
                                Int64(-1).GetHashCode(), UInt64(0xFFFFFFFFFFFFFFFE).GetHashCode(),
                                Double(1).GetHashCode(), Single(1).GetHashCode(), Double(-0.0).GetHashCode()}));
}

TEST(WrapperTests, ConversionsRefuseWhatDoesNotFit)
{
    const Double nan(Double::NaN);
    ExpectEachThrows<OverflowException>(
        {[] { Convert::ToByte(Int32(256)); }, [] { Convert::ToByte(Int32(-1)); }, [] { Convert::ToSByte(Byte(128)); },
         [] { Convert::ToInt16(Int32(32768)); }, [] { Convert::ToUInt16(Int16(-1)); },
         [] { Convert::ToInt32(UInt32(2147483648U)); }, [] { Convert::ToUInt32(Int64(4294967296)); },
         [] { Convert::ToInt64(UInt64(UInt64::MaxValue)); }, [] { Convert::ToUInt64(Int64(-1)); }});
    ExpectEachThrows<OverflowException>(
        {[] { Convert::ToChar(Int32(1114112)); }, [] { Convert::ToChar(Int32(-1)); },
         [] { Convert::ToInt32(Double(2147483648.0)); }, [&] { Convert::ToInt32(nan); },
         [] { Convert::ToInt64(Double(9223372036854775808.0)); }, [] { Convert::ToUInt64(Double(-1)); },
         [] { Convert::ToSingle(Double(1e39)); }, [] { Convert::ToInt32(DateTime(DateTime::MaxValue)); },
         [] { Convert::ToDateTime(Int32(-1)); }, [] { Convert::ToDateTime(Int64(Int64::MaxValue)); }});
    EXPECT_THROW(Convert::ToInt32(null), ArgumentNullException);
}

TEST(WrapperTests, ConversionsKeepWhatFitsAndParseText)
{
    EXPECT_TRUE(Convert::ToBoolean(Int32(-3)) && !Convert::ToBoolean(Double(0)) && Convert::ToBoolean(String("true")));
    EXPECT_TRUE(Convert::ToInt32(Boolean(true)) == 1 && Convert::ToInt32(String(" -12 ")) == -12);
    EXPECT_EQ(char32(1114111), Convert::ToChar(Int32(1114111)));
    EXPECT_EQ(-2147483647 - 1, Convert::ToInt32(Double(-2147483648.9)));
    EXPECT_EQ(0U, Convert::ToUInt32(Double(-0.9)));
    EXPECT_EQ(Single::PositiveInfinity, Convert::ToSingle(Double(Double::PositiveInfinity)));
    EXPECT_EQ(DateTime(12345), Convert::ToDateTime(Int32(12345)));
    EXPECT_TRUE(Convert::ToDateTime(DateTime(7)) == DateTime(7) && Convert::ToChar(DateTime(65)) == char32('A'));
    EXPECT_EQ("True", Convert::ToString(Boolean(true)).Utf8());
    EXPECT_TRUE(Convert::ToDouble(String("0.5")) == 0.5 && Convert::ToChar(String("x")) == char32('x'));
    EXPECT_EQ(DateTime(2024, 2, 29, 23, 59, 58), Convert::ToDateTime(String("29/02/2024 23:59:58")));
    ExpectEachThrows<FormatException>({[] { Convert::ToChar(String("xy")); },
                                       [] { Convert::ToDateTime(String("29/02/2024T23:59:58")); },
                                       [] { Convert::ToDateTime(String("29/02/2023 23:59:58")); }});
    EXPECT_THROW(Convert::ToByte(String("256")), OverflowException);
}

TEST(WrapperTests, ToTypeMakesAWrapperOfTheClassAndPointersAreNumbers)
{
    int local = 0;
    EXPECT_TRUE(IntPtr(0).Equals(IntPtr::Zero) && !IntPtr(0).Equals(UIntPtr::Zero));
    EXPECT_TRUE(IntPtr(-1).CompareTo(IntPtr::Zero) < 0 && IntPtr(&local).ToPointer() == &local);
    EXPECT_TRUE(IntPtr(5) + 1 == 6 && UIntPtr(5).Value() == 5 && UIntPtr(5).ToUInt64() == 5 &&
                IntPtr(-5).ToInt64() == -5);
    EXPECT_TRUE(IntPtr(-5).ToInt32() == -5 && UIntPtr(5).ToUInt32() == 5 && UIntPtr(5).GetHashCode() == 5);
    EXPECT_EQ("-5", IntPtr(-5).ToString().Utf8());
    EXPECT_TRUE(sizeof(void*) == 4 || IntPtr(static_cast<std::intptr_t>(0x700000002)).GetHashCode() == 5);
    EXPECT_EQ("-1 " + std::string(sizeof(void*) * 2, 'f'), String::Format("{0} {0:x}", IntPtr(-1)).Utf8());
    const IFormatProvider& provider = FormatProvider::Default();
    const Up<Object> wide = Int32(7).ToType(Type(typeid(Int64)), provider);
    EXPECT_EQ("Tesmo::System::Int64 7", String::Format("{0} {1}", wide->GetType(), *wide).Utf8());
    EXPECT_TRUE(Int32(7).ToType(Type(typeid(String)), provider)->Equals(String("7")));
    EXPECT_TRUE(String("7").ToType(Type(typeid(Byte)), provider)->Equals(Byte(7)));
    EXPECT_THROW(Int32(7).ToType(Type(typeid(Object)), provider), InvalidCastException);
    EXPECT_EQ("True", Boolean(true).ToString("any").Utf8());
    ExpectEachThrows<ArgumentNullException>(
        {[&] { Int32(7).ToType(null, provider); }, [] { static_cast<void>(Boolean(true).ToString(null)); }});
}
