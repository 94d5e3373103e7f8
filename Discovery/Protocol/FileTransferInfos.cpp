#include "FileTransferInfos.h"

#include <Core/System/Checks.h>

#include <algorithm>

namespace Zelkor::Discovery
{
using Serialization::Json::JSONObject, Serialization::Json::JSONStringer;
using Tesmo::Sp, Tesmo::System::NotNull, Tesmo::System::String;

FileTransferInfos::FileTransferInfos() : Infos(new Dictionary()) {}

FileTransferInfos::FileTransferInfos(const FileTransferInfos& other) : Infos(new Dictionary(*NotNull(other).Infos)) {}

FileTransferInfos& FileTransferInfos::operator=(const FileTransferInfos& other)
{
    Infos = Sp<Dictionary>(new Dictionary(*NotNull(other).Infos));
    return *this;
}

JSONStringer& FileTransferInfos::WriteJSON(JSONStringer& stringer) const
{
    for (const auto& [key, value] : *Infos)
    {
        stringer.Key(key).Value(value);
    }
    return stringer;
}

void FileTransferInfos::ReadJSON(const String& text)
{
    Infos->Clear(); // also for a text that is no object
    ReadObject(JSONObject(text));
}

void FileTransferInfos::ReadObject(const JSONObject& object)
{
    Infos->Clear();
    for (const String& key : object.GetKeys())
    {
        Infos->Add(key, object.GetString(key));
    }
}

bool FileTransferInfos::operator==(const FileTransferInfos& other) const
{
    return !Tesmo::IsNull(other) && std::all_of(other.Infos->begin(), other.Infos->end(),
                                                [this](const auto& pair)
                                                {
                                                    String value;
                                                    return Infos->TryGetValue(pair.first, value) &&
                                                           value == pair.second;
                                                });
}
} // namespace Zelkor::Discovery
