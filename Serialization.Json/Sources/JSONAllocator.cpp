#include <Serialization.Json/JSONAllocator.h>

#include <cjson/cJSON.h>

#include <cstddef>
#include <mutex>
#include <new>

namespace Zelkor::Serialization::Json
{
namespace
{
void* CJSON_CDECL Allocate(std::size_t size)
{
    return ::operator new(size, std::nothrow);
}

void CJSON_CDECL Free(void* memory)
{
    ::operator delete(memory);
}
} // namespace

JSONAllocator::JSONAllocator()
{
    static std::once_flag installed;
    std::call_once(installed,
                   []
                   {
                       cJSON_Hooks hooks = {Allocate, Free};
                       cJSON_InitHooks(&hooks);
                   });
}
} // namespace Zelkor::Serialization::Json
