#pragma once

#include <Core/System/Text/ANSIEncoding.h>

namespace Tesmo::System::Text
{
/// Code page 28592, "iso-8859-2": Latin for the languages of central Europe.
class CodePage28592Encoding : public ANSIEncoding
{
public:
    /// Without a preamble; all objects of the class behave alike.
    CodePage28592Encoding();

    using ANSIEncoding::operator=;
};
} // namespace Tesmo::System::Text
