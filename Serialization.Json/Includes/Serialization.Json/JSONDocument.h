#pragma once

#include <Core/System/Object.h>
#include <Core/System/String.h>
#include <Serialization.Json/JSONAllocator.h>
#include <Serialization.Json/JSONItem.h>

#include <utility>

namespace Zelkor::Serialization::Json
{
/// What JSONObject ('{') and JSONArray ('[') have in common: a tree of their own, and its text.
template <char Opening>
class JSONDocument : public JSONAllocator, public Tesmo::System::Object
{
public:
    /// The compact text: no white space, members in document order.
    Tesmo::System::String ToString() const override;

protected:
    JSONDocument();
    explicit JSONDocument(const Tesmo::System::String& text);
    explicit JSONDocument(const cJSON& item);
    explicit JSONDocument(JSONItem item) : root(std::move(item)) {}
    JSONDocument(const JSONDocument& other);
    JSONDocument& operator=(const JSONDocument& other);
    ~JSONDocument() override = default;

    /// Takes a copy of the item, which may be a part of this document.
    /// @throws FormatException  it is a container of the other kind, or none; this document has no root then
    void Load(const cJSON* item);

    JSONItem root; ///< empty only after a failed assignment
};
} // namespace Zelkor::Serialization::Json
