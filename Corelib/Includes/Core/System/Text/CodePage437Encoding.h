#pragma once

#include <Core/System/Text/ANSIEncoding.h>

namespace Tesmo::System::Text
{
/// Code page 437, "IBM437": the character set of the first personal computers.
class CodePage437Encoding : public ANSIEncoding
{
public:
    /// Without a preamble; all objects of the class behave alike.
    CodePage437Encoding();

    using ANSIEncoding::operator=;
};
} // namespace Tesmo::System::Text
