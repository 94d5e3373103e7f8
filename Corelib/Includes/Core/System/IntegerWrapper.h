#pragma once

#include <Core/System/CallSite.h>
#include <Core/System/PrimitiveWrapper.h>

#include <limits>

namespace Tesmo::System
{
/// What the integer wrappers have in common; NumericalFormat tells the formats, NumericalParsing the texts. A failed
/// Parse names the place of its call, because that tells which number was bad.
template <class W, class P>
class IntegerWrapper : public PrimitiveWrapper<W, P>
{
public:
    static constexpr P MinValue = std::numeric_limits<P>::min();
    static constexpr P MaxValue = std::numeric_limits<P>::max();

    /// @throws ArgumentNullException  text is null
    /// @throws FormatException        text is no number
    /// @throws OverflowException      the number does not fit
    static P Parse(const String& text, CallSite site = CallSite::Here());
    /// @param base  2 to 32
    /// @throws ArgumentException  base is out of range
    static P Parse(const String& text, int base, CallSite site = CallSite::Here());

    /// False, and no change of result, where Parse throws.
    static bool TryParse(const String& text, P& result);
    static bool TryParse(const String& text, int base, P& result);

protected:
    using PrimitiveWrapper<W, P>::PrimitiveWrapper;
};
} // namespace Tesmo::System
