#pragma once

namespace Zelkor::Discovery::Client::Platform
{

/// What this host is, for the people who see it announced. Any thread.
const char* DeviceType();

} // namespace Zelkor::Discovery::Client::Platform
