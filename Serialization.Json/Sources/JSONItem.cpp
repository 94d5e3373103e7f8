#include <Serialization.Json/JSONItem.h>

#include <cjson/cJSON.h>

namespace Zelkor::Serialization::Json
{
void JSONItemDeleter::operator()(cJSON* item) const noexcept
{
    cJSON_Delete(item);
}
} // namespace Zelkor::Serialization::Json
