#pragma once

#include <Core/System/Collections/Generic/IEnumerator.h>
#include <Core/System/Ref.h>
#include <Core/System/String.h>

namespace Tesmo::System
{
/// Walks over the code points of a text from its start. The text must outlive the walk and keep its content.
class String::Enumerator : public Object, public Collections::Generic::IEnumerator<char32>
{
public:
    /// @throws ArgumentNullException  text is null
    explicit Enumerator(const String& text);

    const char32& Current() const override;
    bool MoveNext() override;
    void Reset() override;

private:
    Ref<const String> owner;
    bool beforeFirst = true;
    ustring::const_iterator position;
    char32 current;
};
} // namespace Tesmo::System
