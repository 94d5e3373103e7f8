#pragma once

#include <Core/System/Collections/Generic/Dictionary.h>
#include <Core/System/Sp.h>
#include <Core/System/String.h>
#include <Serialization.Json/JSONObject.h>
#include <Serialization.Json/JSONStringer.h>

namespace Zelkor::Discovery
{
/// What a host tells about its file transfer: texts by keys that this program does not interpret. Copies share nothing.
class FileTransferInfos
{
public:
    using Dictionary = Tesmo::System::Collections::Generic::Dictionary<Tesmo::System::String, Tesmo::System::String>;

    /// Without pairs.
    FileTransferInfos();
    /// @throws ArgumentNullException  other is null
    FileTransferInfos(const FileTransferInfos& other);
    FileTransferInfos& operator=(const FileTransferInfos& other);
    virtual ~FileTransferInfos() = default;

    /// Writes the pairs into an object that the caller has opened and will close.
    virtual Serialization::Json::JSONStringer& WriteJSON(Serialization::Json::JSONStringer& stringer) const;

    /// Replaces the pairs by those of the text, or by those of the object: a flat one of strings. What was read before a failure stays.
    /// @throws FormatException    the text is no object
    /// @throws ArgumentException  a value is no string, or a key comes twice
    void ReadJSON(const Tesmo::System::String& text);
    void ReadObject(const Serialization::Json::JSONObject& object);

    /// True when every pair of other is here too. Pairs that other lacks don't count: the relation is one-way.
    bool operator==(const FileTransferInfos& other) const;

    Tesmo::Sp<Dictionary> Infos;
};
} // namespace Zelkor::Discovery
