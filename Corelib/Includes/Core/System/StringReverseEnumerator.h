#pragma once

#include <Core/System/Collections/Generic/IEnumerator.h>
#include <Core/System/Ref.h>
#include <Core/System/String.h>

namespace Tesmo::System
{
/// Walks over the code points of a text from its end. The text must outlive the walk and keep its content.
class String::ReverseEnumerator : public Object, public Collections::Generic::IEnumerator<char32>
{
public:
    /// @throws ArgumentNullException  text is null
    explicit ReverseEnumerator(const String& text);

    const char32& Current() const override;
    bool MoveNext() override;
    void Reset() override;

private:
    Ref<const String> owner;
    bool beforeFirst = true;
    ustring::const_reverse_iterator position;
    char32 current;
};
} // namespace Tesmo::System
