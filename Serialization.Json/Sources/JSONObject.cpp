#include <Serialization.Json/JSONObject.h>

#include "CJSONAdapter.h"

#include <Core/System/ArgumentException.h>
#include <Core/System/OutOfMemoryException.h>
#include <Core/System/ThrowSite.h>

#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

namespace Zelkor::Serialization::Json
{
using Tesmo::System::ArgumentException, Tesmo::System::Array, Tesmo::System::OutOfMemoryException,
    Tesmo::System::String;

namespace
{
char ToLower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
}

bool EqualsIgnoringCase(std::string_view left, std::string_view right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return ToLower(a) == ToLower(b); });
}
} // namespace

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

/// In place of cJSON_GetObjectItem, which compares letters by the locale (decision 83).
const cJSON* JSONObject::Locate(const String& key) const
{
    const std::string_view name = key.Utf8().c_str(); // ends at a zero character, like names in the tree
    const cJSON* item = root != nullptr ? root->child : nullptr;
    while (item != nullptr && !EqualsIgnoringCase(item->string, name))
    {
        item = item->next;
    }
    return item;
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

void JSONObject::ThrowMissing(Site site)
{
    throw ArgumentException(site.file, site.line);
}
} // namespace Zelkor::Serialization::Json
