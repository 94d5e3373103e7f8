#include <Core/System/StringEnumerator.h>
#include <Core/System/StringReverseEnumerator.h>

#include <Core/System/Checks.h>
#include <Core/System/InvalidOperationException.h>

namespace Tesmo::System
{
namespace
{
/// One step of either enumerator: the first only clears beforeFirst, later ones move. False at the end.
template <class Iterator>
bool Step(bool& beforeFirst, Iterator& position, char32& current)
{
    if (beforeFirst)
    {
        beforeFirst = false;
    }
    else
    {
        ++position;
    }
    current = *position;
    return position.byteIndex >= 0;
}

template <class Iterator>
void CheckStandsOnCharacter(bool beforeFirst, const Iterator& position)
{
    if (beforeFirst || position.byteIndex < 0)
    {
        throw InvalidOperationException(ThrowSite);
    }
}
} // namespace

String::Enumerator::Enumerator(const String& text) : owner(NotNull(text)), position(text.Text().begin()) {}

const char32& String::Enumerator::Current() const
{
    CheckStandsOnCharacter(beforeFirst, position);
    return current;
}

bool String::Enumerator::MoveNext()
{
    return Step(beforeFirst, position, current);
}

void String::Enumerator::Reset()
{
    beforeFirst = true;
    position = owner->Text().begin();
}

String::ReverseEnumerator::ReverseEnumerator(const String& text) : owner(NotNull(text)), position(text.Text().rbegin())
{
}

const char32& String::ReverseEnumerator::Current() const
{
    CheckStandsOnCharacter(beforeFirst, position);
    return current;
}

bool String::ReverseEnumerator::MoveNext()
{
    return Step(beforeFirst, position, current);
}

void String::ReverseEnumerator::Reset()
{
    beforeFirst = true;
    position = owner->Text().rbegin();
}
} // namespace Tesmo::System
