// Compiled once for each level of optimisation: compilers take for granted that no reference is null.
#include <Tests/Support/CoreTest.h>

#include <Core/System/Collections/Generic/Dictionary.h>
#include <Core/System/Collections/Generic/Queue.h>
#include <Core/System/Collections/Generic/SortedDictionary.h>
#include <Core/System/IO/FileInfo.h>
#include <Core/System/Net/Dns.h>
#include <Core/System/Net/Sockets/Socket.h>
#include <Core/System/Net/Sockets/SocketException.h>
#include <Core/System/Random.h>
#include <Core/System/Ref.h>
#include <Core/System/Threading/AutoResetEvent.h>

using namespace Tesmo::System::Collections::Generic;
using namespace Tesmo::System::Net;

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

template <class T>
const T& Nothing = null;

template <class T>
void ExpectNoCopyOfNull(T target)
{
    SCOPED_TRACE(Type(typeid(T)).ToString().Utf8());
    ExpectEachThrows<ArgumentNullException>({[&] { static_cast<void>(T(Nothing<T>)); }, [&] { target = Nothing<T>; }});
}

template <class... Ts>
void ExpectNoCopiesOfNull(const Ts&... targets)
{
    (ExpectNoCopyOfNull(targets), ...);
}
} // namespace

TEST(NullTests, NullIsNullUnderEveryClassAndBaseAndAnObjectNever)
{
    EXPECT_TRUE(ReceivesNull<String>(null) && ReceivesNull<Abstract>(null) && ReceivesNull<Padding>(null) &&
                ReceivesNull<Sp<String>>(null));
    EXPECT_EQ(7, CountNullBases(null));
    EXPECT_TRUE(IsNullBehindBigBase(null));

    static const String global = "global";
    const Up<String> heap(new String("heap"));
    EXPECT_EQ(0, CountNullBases(global) + CountNullBases(*heap) + CountNullBases("local"));
    EXPECT_FALSE(IsNullBehindBigBase(Concrete()) || IsNull(Padding()));
    EXPECT_FALSE(IsNull(null)); // the constant itself is an object
}

TEST(NullTests, ACopyOfNullIsRefused)
{
    const IPEndPoint endPoint(IPAddress::Any, 1);
    ExpectNoCopiesOfNull(Queue<int>(), Dictionary<String, int>(), SortedDictionary<String, int>(), List<int>(),
                         Array<int>(1), KeyValuePair<int, int>(), String(), Int32(), DateTime(), TimeSpan(), Version(),
                         Type(), EventHandler(), IPAddress(), endPoint, EndPoint(endPoint), endPoint.Serialize(),
                         IPHostEntry("", Array<String>(0), Array<IPAddress>(0)), Exception("text"),
                         Sockets::SocketException(Sockets::SocketError::Fault, ThrowSite),
                         Sockets::SocketError(Sockets::SocketError::Fault));
    EXPECT_THROW(Ref<String>(Nothing<Ref<String>>), std::exception);
}

TEST(NullTests, OperationsThatNeedAnObjectRefuseNull)
{
    static const Concrete target;
    static Delegate<int> delegate;
    static Threading::AutoResetEvent event(false);
    ExpectEachThrows<ArgumentNullException>({
        [] { static_cast<void>(DateTime() < Nothing<DateTime>); },
        [] { static_cast<void>(TimeSpan() < Nothing<TimeSpan>); },
        [] { static_cast<void>(Version() < Nothing<Version>); },
        [] { delegate += null; },
        [] { delegate -= null; },
        [] { Delegate<int>(target, static_cast<int (Concrete::*)() const>(nullptr)); },
        [] { Ref<const String>(Nothing<String>); },
        [] { List<int>::Enumerator walk(Nothing<List<int>>); },
        [] { Queue<int>::Enumerator walk(Nothing<Queue<int>>); },
        [] { EndPoint(Nothing<Sockets::AddressFamily>); },
        [] { IPEndPoint(Nothing<IPAddress>, 1); },
        [] { SocketAddress(static_cast<const unsigned char*>(nullptr), 16); },
        [] { TimeSpan::Parse(Nothing<String>); },
        [] { String("a").IndexOfAny(Nothing<Array<char32>>); },
        [] { String::Format(Nothing<String>, 1); },
        [] { String::Format(Nothing<IFormatProvider>, "{0}", 1); },
        [] { String::Format("{0}", Nothing<Array<Sp<Object>>>); },
        [] { String("a").LastIndexOf(Nothing<String>, 0, 1); },
        [] { String("a").LastIndexOf(Nothing<String>, 9); },
        [] { String("a").LastIndexOfAny(Nothing<Array<char32>>, 9); },
        [] { Random().NextBytes(const_cast<Array<unsigned char>&>(Nothing<Array<unsigned char>>)); },
        [] { Threading::WaitHandle::SignalAndWait(event, event, Nothing<TimeSpan>); },
        [] { IPHostEntry("", Nothing<Array<String>>, Array<IPAddress>(0)); },
        [] { DateTime().Add(Nothing<TimeSpan>); },
        [] { DateTime().Subtract(Nothing<TimeSpan>); },
        [] { DateTime().Subtract(Nothing<DateTime>); },
        [] { DateTime().ToString(Nothing<String>); },
        [] { IO::FileInfo("none").MoveTo(null); },
        [] { IO::FileInfo("none").CopyTo(null, true); },
        [] { Dns::GetHostAddresses(null); },
        [] { Dns::GetHostEntry(Nothing<IPAddress>); },
        [] { IPAddress::Parse(null); },
        [] { IPEndPoint(IPAddress::Any, 1).Create(Nothing<SocketAddress>); },
        [] { SocketAddress(Nothing<Sockets::AddressFamily>, 16); },
        [] { Sockets::Socket(null, Sockets::SocketType::Dgram, Sockets::ProtocolType::Udp); },
        [] { Sockets::Socket(Sockets::AddressFamily::InterNetwork, null, Sockets::ProtocolType::Udp); },
        [] { Sockets::Socket(Sockets::AddressFamily::InterNetwork, Sockets::SocketType::Dgram, null); },
        [] { throw Sockets::SocketException(Nothing<Sockets::SocketError>, ThrowSite); },
    });
    EXPECT_FALSE(DateTime() == Nothing<DateTime> || TimeSpan() == Nothing<TimeSpan> || Version() == Nothing<Version>);
    delegate = null;
    EXPECT_TRUE(delegate == null);
}
