#include <Serialization.Json/JSONObject.h>

#include "CJSONAdapter.h"

#include <Core/System/ArgumentException.h>
#include <Core/System/OutOfMemoryException.h>
#include <Core/System/ThrowSite.h>

#include <utility>
#include <vector>

namespace Zelkor::Serialization::Json
{
using Tesmo::System::ArgumentException;
using Tesmo::System::Array;
using Tesmo::System::OutOfMemoryException;
using Tesmo::System::String;

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

void JSONObject::ThrowMissing(Site site)
{
    throw ArgumentException(site.file, site.line);
}
} // namespace Zelkor::Serialization::Json
