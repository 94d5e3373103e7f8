#include <Serialization.Json/JSONDocument.h>

#include "CJSONAdapter.h"

#include <Core/System/Checks.h>
#include <Core/System/FormatException.h>
#include <Core/System/ThrowSite.h>

#include <string>
#include <utility>

namespace Zelkor::Serialization::Json
{
using Tesmo::System::FormatException, Tesmo::System::NotNull, Tesmo::System::String;

namespace
{
void CheckRoot(const JSONItem& root)
{
    if (root == nullptr)
    {
        throw FormatException(ThrowSite);
    }
}
} // namespace

template <char Opening>
JSONDocument<Opening>::JSONDocument()
    : root(CJSONAdapter::Checked(Opening == '{' ? cJSON_CreateObject() : cJSON_CreateArray()))
{
}

template <char Opening>
JSONDocument<Opening>::JSONDocument(const String& text) : root(CJSONAdapter::Parse(NotNull(text).Utf8(), Opening))
{
    CheckRoot(root);
}

template <char Opening>
JSONDocument<Opening>::JSONDocument(const cJSON& item)
{
    Load(&item);
}

template <char Opening>
JSONDocument<Opening>::JSONDocument(const JSONDocument& other) : JSONAllocator(),
                                                                 Object()
{
    Load(NotNull(other).root.get());
}

template <char Opening>
JSONDocument<Opening>& JSONDocument<Opening>::operator=(const JSONDocument& other)
{
    Load(NotNull(other).root.get());
    return *this;
}

template <char Opening>
String JSONDocument<Opening>::ToString() const
{
    std::string text;
    CJSONAdapter::Print(root.get(), text);
    return String(std::move(text));
}

template <char Opening>
void JSONDocument<Opening>::Load(const cJSON* item)
{
    constexpr int kind = Opening == '{' ? cJSON_Object : cJSON_Array;
    root = item != nullptr && CJSONAdapter::Kind(*item) == kind ? CJSONAdapter::Copy(*item) : nullptr;
    CheckRoot(root);
}

template class JSONDocument<'{'>;
template class JSONDocument<'['>;
} // namespace Zelkor::Serialization::Json
