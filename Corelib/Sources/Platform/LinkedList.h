#pragma once

namespace Tesmo::Platform
{
/// First in, first out, over elements that bear the links themselves, as `previous` and `following`. Elements must
/// outlive their stay; an element is in one list at a time.
template <class Element>
class LinkedList
{
public:
    /// Null when the list is empty.
    Element* First() const
    {
        return first;
    }

    /// Adds the element at the end.
    void Add(Element& element)
    {
        element.previous = last;
        element.following = nullptr;
        (last == nullptr ? first : last->following) = &element;
        last = &element;
    }

    void Remove(Element& element)
    {
        (element.previous == nullptr ? first : element.previous->following) = element.following;
        (element.following == nullptr ? last : element.following->previous) = element.previous;
    }

private:
    Element* first = nullptr;
    Element* last = nullptr;
};
} // namespace Tesmo::Platform
