#include <Serialization.Json/JSONArray.h>

#include "CJSONAdapter.h"

#include <Core/System/ArgumentNullException.h>
#include <Core/System/ArgumentOutOfRangeException.h>
#include <Core/System/FormatException.h>
#include <Core/System/OutOfMemoryException.h>
#include <Core/System/ThrowSite.h>

#include <string>
#include <utility>

namespace Zelkor::Serialization::Json
{
using Tesmo::System::ArgumentNullException;
using Tesmo::System::ArgumentOutOfRangeException;
using Tesmo::System::FormatException;
using Tesmo::System::OutOfMemoryException;
using Tesmo::System::String;

namespace
{
JSONItem ParseArray(const std::string& text)
{
    JSONItem root = CJSONAdapter::Parse(text, '[');
    if (root == nullptr)
    {
        throw FormatException(ThrowSite);
    }
    return root;
}

template <class T>
const T& Checked(const T& argument)
{
    if (Tesmo::IsNull(argument))
    {
        throw ArgumentNullException(ThrowSite);
    }
    return argument;
}
} // namespace

JSONArray::JSONArray() : root(CJSONAdapter::Checked(cJSON_CreateArray())) {}

JSONArray::JSONArray(const String& text) : root(ParseArray(Checked(text).Utf8())) {}

JSONArray::JSONArray(const JSONArray& other) : JSONAllocator(), Object(), JSONAccess()
{
    Load(Checked(other).root.get());
}

JSONArray::JSONArray(const cJSON& item)
{
    Load(&item);
}

JSONArray& JSONArray::operator=(const JSONArray& other)
{
    Load(Checked(other).root.get());
    return *this;
}

String JSONArray::ToString() const
{
    std::string text;
    CJSONAdapter::Print(root.get(), text);
    return String(std::move(text));
}

int JSONArray::GetLength() const
{
    return cJSON_GetArraySize(root.get());
}

/// A source that is no array leaves this one without a root.
void JSONArray::Load(const cJSON* item)
{
    std::string text;
    CJSONAdapter::Print(item, text);
    lastFound = nullptr;
    root.reset();
    root = ParseArray(text);
}

const cJSON* JSONArray::Locate(int index) const
{
    if (index < 0 || root == nullptr)
    {
        return nullptr;
    }
    const bool isAhead = lastFound != nullptr && lastIndex <= index;
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
    lastFound = nullptr;
    if (cJSON_InsertItemInArray(root.get(), index, value.get()) == 0)
    {
        throw OutOfMemoryException(ThrowSite);
    }
    static_cast<void>(value.release());
}

void JSONArray::Detach(const cJSON* item)
{
    lastFound = nullptr;
    cJSON_Delete(cJSON_DetachItemViaPointer(root.get(), const_cast<cJSON*>(item)));
}

void JSONArray::ThrowMissing()
{
    throw ArgumentOutOfRangeException(ThrowSite);
}
} // namespace Zelkor::Serialization::Json
