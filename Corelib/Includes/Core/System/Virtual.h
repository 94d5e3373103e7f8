#pragma once

namespace Tesmo::System
{
/// Root of all interfaces: no data, one virtual operation.
class Virtual
{
public:
    virtual ~Virtual() = default;

protected:
    Virtual() = default;
    Virtual(const Virtual&) = default;
    Virtual& operator=(const Virtual&) = default;
};
} // namespace Tesmo::System
