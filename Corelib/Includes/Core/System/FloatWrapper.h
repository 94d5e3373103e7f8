#pragma once

#include <Core/System/CallSite.h>
#include <Core/System/PrimitiveWrapper.h>

#include <limits>

namespace Tesmo::System
{
/// What Single and Double have in common; NumericalFormat tells the formats, NumericalParsing the texts.
template <class W, class P>
class FloatWrapper : public PrimitiveWrapper<W, P>
{
public:
    static constexpr P MinValue = std::numeric_limits<P>::lowest();
    static constexpr P MaxValue = std::numeric_limits<P>::max();
    static constexpr P Epsilon = std::numeric_limits<P>::denorm_min();
    static constexpr P PositiveInfinity = std::numeric_limits<P>::infinity();
    static constexpr P NegativeInfinity = -std::numeric_limits<P>::infinity();
    static constexpr P NaN = std::numeric_limits<P>::quiet_NaN();

    /// A failure names the place of the call.
    /// @throws ArgumentNullException  text is null
    /// @throws FormatException        text is no number
    /// @throws OverflowException      the number does not fit
    static P Parse(const String& text, CallSite site = CallSite::Here());

    /// False, and no change of result, where Parse throws.
    static bool TryParse(const String& text, P& result);

protected:
    using PrimitiveWrapper<W, P>::PrimitiveWrapper;
};
} // namespace Tesmo::System
