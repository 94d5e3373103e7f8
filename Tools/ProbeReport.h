#pragma once

#include <Core/System/Net/IPEndPoint.h>
#include <Core/System/String.h>

#include <string>

namespace Zelkor::Discovery::Tools
{
/// One received datagram for people: time, sender, type, host, a line for each adapter and product. Text that is no
/// message is shown as it came, with the failure.
std::string ReportForPeople(const Tesmo::System::String& text, const Tesmo::System::Net::IPEndPoint& sender);

/// One received datagram as one JSON object on one line: "time", "sender", and either "message" with the whole message
/// or "text" with what is none.
std::string ReportForPrograms(const Tesmo::System::String& text, const Tesmo::System::Net::IPEndPoint& sender);
} // namespace Zelkor::Discovery::Tools
