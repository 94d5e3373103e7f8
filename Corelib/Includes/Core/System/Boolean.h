#pragma once

#include <Core/System/PrimitiveWrapper.h>

namespace Tesmo::System
{
class Boolean;
extern template class PrimitiveWrapper<Boolean, bool>;

/// A truth value. Its text is "True" or "False" under every format.
class Boolean : public PrimitiveWrapper<Boolean, bool>
{
public:
    static constexpr bool MinValue = false;
    static constexpr bool MaxValue = true;

    /// False, or the given value; implicit, so that a plain truth value passes for an object.
    constexpr Boolean() : PrimitiveWrapper(false) {}
    constexpr Boolean(bool primitive) : PrimitiveWrapper(primitive) {}

    /// The texts that ToString gives: "True" and "False".
    static const String& TrueString();
    static const String& FalseString();

    /// Reads "True" or "False" without regard to case, blanks around it allowed.
    /// @throws ArgumentNullException  text is null
    /// @throws FormatException        text is neither
    static bool Parse(const String& text);

    /// False, and no change of result, where Parse throws.
    static bool TryParse(const String& text, bool& result);
};
} // namespace Tesmo::System
