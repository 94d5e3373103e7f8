#pragma once

#include <Core/System/Text/ANSIEncoding.h>

namespace Tesmo::System::Text
{
/// Code page 28592, "iso-8859-2": Latin for the languages of central Europe.
class CodePage28592Encoding : public ANSIEncoding
{
public:
    CodePage28592Encoding();

    using ANSIEncoding::operator=;
};
} // namespace Tesmo::System::Text
