#include <Tests/Support/CoreTest.h>

#include <Core/System/BadImageFormatException.h>
#include <Core/System/DivideByZeroException.h>
#include <Core/System/EntryPointNotFoundException.h>
#include <Core/System/Net/Sockets/SocketException.h>
#include <Core/System/NotImplementedException.h>
#include <Core/System/ObjectDisposedException.h>
#include <Core/System/Runtime/Serialization/SerializationException.h>
#include <Core/System/Security/SecurityException.h>
#include <Core/System/Threading/ThreadAbortException.h>
#include <Core/System/Threading/ThreadInterruptedException.h>

namespace
{
/// Thrown under its own class and caught under a base, which reports the thrown class and its message.
template <class Thrown, class Base = SystemException>
void ExpectMessage(const std::string& message)
{
    const std::string report = Type(typeid(Thrown)).ToString().Utf8() + ": " + message + "\r\n   in a.cpp:7\r\n";
    EXPECT_THAT([] { throw Thrown("a.cpp", 7); }, testing::ThrowsMessage<Base>(report));
}
} // namespace

TEST(ExceptionTests, EveryClassHasItsBaseAndItsDefaultMessage)
{
    Exception::StackTraceEnabled = false;
    ExpectMessage<SystemException, Exception>("System error.");
    ExpectMessage<ApplicationException, Exception>("Error in the application.");
    ExpectMessage<ArgumentException>("Value does not fall within the expected range.");
    ExpectMessage<ArgumentNullException, ArgumentException>("Value cannot be null.");
    ExpectMessage<ArgumentOutOfRangeException, ArgumentException>(
        "Specified argument is out of range of valid values.");
    ExpectMessage<ArithmeticException>("Overflow or underflow in the arithmetic operation.");
    ExpectMessage<DivideByZeroException, ArithmeticException>("Attempt to divide by zero.");
    ExpectMessage<OverflowException, ArithmeticException>("Arithmetic operation resulted in an overflow.");
    ExpectMessage<FormatException>("One of identified items is an invalid format.");
    ExpectMessage<IndexOutOfRangeException>("Index was outside the bounds of the array.");
    ExpectMessage<InvalidCastException>("Specified cast is not valid.");
    ExpectMessage<InvalidOperationException>("Operation is not valid due to the current state of the object.");
    ExpectMessage<ObjectClosedException, InvalidOperationException>("Cannot access a closed object.");
    ExpectMessage<ObjectDisposedException, InvalidOperationException>("Cannot access a disposed object.");
    ExpectMessage<NotImplementedException>("The method or operation is not implemented.");
    ExpectMessage<NotSupportedException>("Specified method is not supported.");
    ExpectMessage<NullReferenceException>("Object reference not set to an instance of an object.");
    ExpectMessage<OutOfMemoryException>("Insufficient memory to continue the execution of the program.");
    ExpectMessage<TypeLoadException>("Failure has occurred while loading a type");
    ExpectMessage<EntryPointNotFoundException, TypeLoadException>("Entry point was not found.");
    ExpectMessage<BadImageFormatException>("Format for the executable or library is invalid.");
    ExpectMessage<Net::Sockets::SocketException>("The Socket operation failed.");
    ExpectMessage<Security::SecurityException>("Security error detected.");
    ExpectMessage<IO::IOException>("I/O error occured.");
    ExpectMessage<IO::FileNotFoundException, IO::IOException>("Unable to find the specified file.");
    ExpectMessage<IO::DirectoryNotFoundException, IO::IOException>(
        "Attempted to access a path that is not on the disk.");
    ExpectMessage<Threading::AbandonedMutexException>("The wait completed due to an abandoned mutex.");
    ExpectMessage<Threading::SemaphoreFullException>(
        "Adding the specified countto the semaphore wold cause it to exceed its maximum count.");
    ExpectMessage<Threading::ThreadAbortException>("Thread was aborted.");
    ExpectMessage<Threading::ThreadInterruptedException>("Thread was interrupted from a waiting state.");
    ExpectMessage<Threading::ThreadStateException>("Thread was in an invalid state for the operation being executed.");
    ExpectMessage<Runtime::Serialization::SerializationException>("Serialization error.");
    ExpectMessage<Exception, Exception>("Exception of type 'Tesmo::System::Exception' was throw.");
    Exception::StackTraceEnabled = true;
}

TEST(ExceptionTests, EachConstructorSetsMessagePlaceAndInner)
{
    const std::string library = "Corelib/Sources/System/Exception.cpp";
    const Exception inner("inner", "i.cpp", 1);
    using Row = std::tuple<Exception, std::string, int, bool>;
    for (const auto& [exception, file, line, hasInner] :
         {Row{Exception(), library, 10, false}, Row{Exception("\xC3\xA4"), library, 31, false},
          Row{Exception("m", "f.cpp", 5), "f.cpp", 5, false}, Row{Exception("m", inner, "f.cpp", 6), "f.cpp", 6, true},
          Row{Exception("m", null, "f.cpp", 6), "f.cpp", 6, false}})
    {
        SCOPED_TRACE(line);
        EXPECT_EQ(exception.File().Utf8(), file);
        EXPECT_EQ(exception.Line(), line);
        EXPECT_EQ(&exception.InnerException() == &inner, hasInner);
        EXPECT_EQ(IsNull(exception.InnerException()), !hasInner);
        EXPECT_EQ(exception.ErrorCode(), 0);
        EXPECT_EQ(exception.ToString().Utf8(), static_cast<const std::exception&>(exception).what());
    }
    EXPECT_EQ(FormatException("m").Message().Utf8(), "m");
    EXPECT_EQ(FormatException("", "f.cpp", 5).Message().Utf8(), FormatException().Message().Utf8());
}

TEST(ExceptionTests, EqualsComparesClassAndFields)
{
    const Exception inner;
    const FormatException first("m", inner, "f.cpp", 5);
    EXPECT_TRUE(first.Equals(FormatException("m", inner, "f.cpp", 5)));
    EXPECT_FALSE(first.Equals(ArgumentException("m", inner, "f.cpp", 5)) ||
                 first.Equals(FormatException("n", inner, "f.cpp", 5)));
    EXPECT_FALSE(first.Equals(FormatException("m", inner, "g.cpp", 5)) ||
                 first.Equals(FormatException("m", inner, "f.cpp", 6)));
    EXPECT_FALSE(first.Equals(FormatException("m", "f.cpp", 5)) || first.Equals(null));
}
