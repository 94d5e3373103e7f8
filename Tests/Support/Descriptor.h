#pragma once

#include <unistd.h>
#include <utility>

/// A file descriptor that closes itself.
class Descriptor
{
public:
    explicit Descriptor(int opened = -1) : number(opened) {}

    Descriptor(Descriptor&& other) noexcept : number(std::exchange(other.number, -1)) {}

    Descriptor& operator=(Descriptor&& other) noexcept
    {
        std::swap(number, other.number);
        return *this;
    }

    ~Descriptor()
    {
        if (number >= 0)
        {
            close(number);
        }
    }

    int Number() const
    {
        return number;
    }

private:
    int number;
};
