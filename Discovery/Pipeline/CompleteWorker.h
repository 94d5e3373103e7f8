#pragma once

namespace Zelkor::Discovery
{
/// The one form in which a worker can be made: its destructor ends the thread before anything that the thread uses is
/// destroyed.
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
