#pragma once

#include <Core/System/Text/ANSIEncoding.h>

namespace Tesmo::System::Text
{
/// Code page 28591, "iso-8859-1": the first 256 code points of Unicode.
class CodePage28591Encoding : public ANSIEncoding
{
public:
    /// Without a preamble; all objects of the class behave alike.
    CodePage28591Encoding();

    using ANSIEncoding::operator=;
};
} // namespace Tesmo::System::Text
