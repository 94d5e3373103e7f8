#pragma once

namespace Zelkor::Discovery::Client::Platform
{

/// To a question that somebody else has to answer. Unknown: nobody answered it.
enum class Answer
{
    No,
    Yes,
    Unknown
};

} // namespace Zelkor::Discovery::Client::Platform
