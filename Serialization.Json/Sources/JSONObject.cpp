#include <Serialization.Json/JSONObject.h>

#include "CJSONAdapter.h"

#include <Core/System/ArgumentException.h>
#include <Core/System/ArgumentNullException.h>
#include <Core/System/FormatException.h>
#include <Core/System/OutOfMemoryException.h>
#include <Core/System/ThrowSite.h>

#include <string>
#include <utility>
#include <vector>

namespace Zelkor::Serialization::Json
{
using Tesmo::System::ArgumentException;
using Tesmo::System::ArgumentNullException;
using Tesmo::System::Array;
using Tesmo::System::FormatException;
using Tesmo::System::OutOfMemoryException;
using Tesmo::System::String;

namespace
{
JSONItem ParseObject(const std::string& text)
{
    JSONItem root = CJSONAdapter::Parse(text, '{');
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

JSONObject::JSONObject() : root(CJSONAdapter::Checked(cJSON_CreateObject())) {}

JSONObject::JSONObject(const String& text) : root(ParseObject(Checked(text).Utf8())) {}

JSONObject::JSONObject(const JSONObject& other) : JSONAllocator(), Object(), JSONAccess()
{
    Load(Checked(other).root.get());
}

JSONObject::JSONObject(const cJSON& item)
{
    Load(&item);
}

JSONObject& JSONObject::operator=(const JSONObject& other)
{
    Load(Checked(other).root.get());
    return *this;
}

String JSONObject::ToString() const
{
    std::string text;
    CJSONAdapter::Print(root.get(), text);
    return String(std::move(text));
}

Array<String> JSONObject::GetKeys() const
{
    std::vector<String> keys;
    for (const cJSON* item = root != nullptr ? root->child : nullptr; item != nullptr; item = item->next)
    {
        keys.emplace_back(item->string);
    }
    return Array<String>(std::move(keys));
}

std::uint32_t JSONObject::GetLength() const
{
    return static_cast<std::uint32_t>(cJSON_GetArraySize(root.get()));
}

/// A source that is no object leaves this one without a root.
void JSONObject::Load(const cJSON* item)
{
    std::string text;
    CJSONAdapter::Print(item, text);
    root.reset();
    root = ParseObject(text);
}

const cJSON* JSONObject::Locate(const String& key) const
{
    return cJSON_GetObjectItem(root.get(), key.Utf8().c_str());
}

void JSONObject::Attach(const String& key, JSONItem value)
{
    if (cJSON_AddItemToObject(root.get(), key.Utf8().c_str(), value.get()) == 0)
    {
        throw OutOfMemoryException(ThrowSite);
    }
    static_cast<void>(value.release());
}

void JSONObject::Detach(const cJSON* item)
{
    cJSON_Delete(cJSON_DetachItemViaPointer(root.get(), const_cast<cJSON*>(item)));
}

void JSONObject::ThrowMissing()
{
    throw ArgumentException(ThrowSite);
}
} // namespace Zelkor::Serialization::Json
