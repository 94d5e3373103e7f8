#pragma once

namespace Zelkor::Serialization::Json
{
/// Base of the JSON classes: sees to it that cJSON takes all its memory from the program's allocation functions before
/// the first tree is made. No start-up step is needed.
class JSONAllocator
{
protected:
    JSONAllocator();
};
} // namespace Zelkor::Serialization::Json
