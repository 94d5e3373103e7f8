#include <Serialization.Json/JSONArray.h>

#include "CJSONAdapter.h"

#include <Core/System/ArgumentOutOfRangeException.h>
#include <Core/System/OutOfMemoryException.h>
#include <Core/System/ThrowSite.h>

#include <utility>

namespace Zelkor::Serialization::Json
{
using Tesmo::System::ArgumentOutOfRangeException, Tesmo::System::OutOfMemoryException, Tesmo::System::String;

JSONArray::JSONArray() = default;

JSONArray::JSONArray(const String& text) : JSONDocument(text) {}

JSONArray::JSONArray(const JSONArray& other) : JSONDocument(other), JSONAccess() {}

JSONArray::JSONArray(const cJSON& item) : JSONDocument(item) {}

JSONArray::JSONArray(JSONItem item) : JSONDocument(std::move(item)) {}

JSONArray& JSONArray::operator=(const JSONArray& other)
{
    lastFound = nullptr;
    JSONDocument::operator=(other);
    return *this;
}

int JSONArray::GetLength() const
{
    return cJSON_GetArraySize(root.get());
}

void JSONArray::Load(const cJSON* item)
{
    lastFound = nullptr;
    JSONDocument::Load(item);
}

const cJSON* JSONArray::Locate(int index) const
{
    if (index < 0 || root == nullptr)
    {
        return nullptr;
    }
    const bool isAhead = lastFound != nullptr && lastIndex <= index; // decision 88
    const cJSON* item = isAhead ? lastFound : root->child;
    for (int steps = isAhead ? index - lastIndex : index; steps > 0 && item != nullptr; --steps)
    {
        item = item->next;
    }
    if (item != nullptr)
    {
        lastFound = item;
        lastIndex = index;
    }
    return item;
}

void JSONArray::Attach(int index, JSONItem value)
{
    if (index < 0)
    {
        throw ArgumentOutOfRangeException(ThrowSite);
    }
    const cJSON* const next = Locate(index);
    lastFound = nullptr;
    if (next != nullptr)
    {
        InsertBefore(const_cast<cJSON*>(next), value.release());
    }
    else if (cJSON_AddItemToArray(root.get(), value.get()) != 0)
    {
        static_cast<void>(value.release());
    }
    else
    {
        throw OutOfMemoryException(ThrowSite);
    }
}

/// In place of cJSON_InsertItemInArray, which on Debian 12 refuses every place between two elements.
void JSONArray::InsertBefore(cJSON* next, cJSON* item)
{
    item->next = next;
    item->prev = next->prev; // for the first item this is the last one
    (next == root->child ? root->child : next->prev->next) = item;
    next->prev = item;
}

void JSONArray::Detach(const cJSON* item)
{
    lastFound = nullptr;
    cJSON_Delete(cJSON_DetachItemViaPointer(root.get(), const_cast<cJSON*>(item)));
}

void JSONArray::ThrowMissing(Site site)
{
    throw ArgumentOutOfRangeException(site.file, site.line);
}
} // namespace Zelkor::Serialization::Json
