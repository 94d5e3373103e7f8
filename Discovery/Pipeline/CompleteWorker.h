#pragma once

namespace Zelkor::Discovery
{
/// A worker as a complete object, the one form in which a worker can be made: its thread has ended before any class that
/// the thread uses is taken apart.
template <class T>
class CompleteWorker final : public T
{
public:
    using T::T;
    ~CompleteWorker() override
    {
        this->EndThread();
    }

private:
    void BeComplete() const override {}
};
} // namespace Zelkor::Discovery
