#pragma once

#include <Core/System/PrimitiveWrapper.h>

#include <limits>

namespace Tesmo::System
{
/// What the integer wrappers have in common; NumericalFormat tells the formats, NumericalParsing the texts.
template <class W, class P>
class IntegerWrapper : public PrimitiveWrapper<W, P>
{
public:
    static constexpr P MinValue = std::numeric_limits<P>::min();
    static constexpr P MaxValue = std::numeric_limits<P>::max();

    /// @throws ArgumentNullException  text is null
    /// @throws FormatException        text is no number
    /// @throws OverflowException      the number does not fit
    static P Parse(const String& text);
    /// @param base  2 to 32
    /// @throws ArgumentException  base is out of range
    static P Parse(const String& text, int base);

    /// False, and no change of result, where Parse throws.
    static bool TryParse(const String& text, P& result);
    static bool TryParse(const String& text, int base, P& result);

protected:
    using PrimitiveWrapper<W, P>::PrimitiveWrapper;
};
} // namespace Tesmo::System
