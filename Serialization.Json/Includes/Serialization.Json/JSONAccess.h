#pragma once

#include <Core/System/CallSite.h>
#include <Core/System/Object.h>
#include <Core/System/String.h>

#include <concepts>
#include <cstdint>
#include <limits>

struct cJSON;

namespace Zelkor::Serialization::Json
{
class JSONArray;
class JSONObject;

/// The typed operations of JSONObject (Key: the member's name, compared without regard to ASCII case, the first of
/// equal names counts) and of JSONArray (Key: the index from 0).
///
/// There is no conversion between kinds of values: one of another kind counts as missing. A number is a double;
/// its reading as an integer cuts the fraction off and keeps to the range of the type (NaN gives 0).
/// A null key gives ArgumentNullException.
template <class Document, class Key>
class JSONAccess
{
public:
    using Site = Tesmo::System::CallSite;

    /// Fetches a value. False, and no change of value, where it is missing.
    bool TryGetValue(Key key, std::int32_t& value) const;
    bool TryGetValue(Key key, std::uint32_t& value) const;
    bool TryGetValue(Key key, std::int64_t& value) const;
    bool TryGetValue(Key key, std::uint64_t& value) const;
    bool TryGetValue(Key key, double& value) const;
    bool TryGetValue(Key key, bool& value) const;

    /// Fetches into a JSONArray, JSONObject, String, Boolean, Int32, UInt32, Int64, UInt64, Double or EnumDeprecated,
    /// if the value is of that kind. Int64 is limited to the range of 32 bits here.
    bool TryGetValue(Key key, Tesmo::System::Object& value) const;

    /// Fetch a value. A failure names the place of the call, because that tells which value is missing.
    ///                 @throws ArgumentException  it is missing (JSONObject)
    ///                 @throws ArgumentOutOfRangeException  it is missing (JSONArray)
    bool GetBoolean(Key key, Site site = Site::Here()) const;
    double GetDouble(Key key, Site site = Site::Here()) const;
    std::int32_t GetInt32(Key key, Site site = Site::Here()) const;
    std::uint32_t GetUInt32(Key key, Site site = Site::Here()) const;
    std::int64_t GetInt64(Key key, Site site = Site::Here()) const;
    std::uint64_t GetUInt64(Key key, Site site = Site::Here()) const;
    Tesmo::System::String GetString(Key key, Site site = Site::Here()) const;
    template <class E>
    E GetEnum(Key key, Site site = Site::Here()) const
    {
        return static_cast<E>(GetInt32(key, site));
    }
    JSONObject GetJSONObject(Key key, Site site = Site::Here()) const;
    JSONArray GetJSONArray(Key key, Site site = Site::Here()) const;

    /// Fetch a container where it lies, without a copy: to be read while this document lives and is not changed.
    /// Failures as above.
    const JSONObject ViewObject(Key key, Site site = Site::Here()) const;
    const JSONArray ViewArray(Key key, Site site = Site::Here()) const;

    /// Fetch a value, or give the default where it is missing. @throws ArgumentNullException  the default is null
    bool OptBoolean(Key key, bool defaultValue = false) const;
    double OptDouble(Key key, double defaultValue = std::numeric_limits<double>::quiet_NaN()) const;
    std::int32_t OptInt32(Key key, std::int32_t defaultValue = 0) const;
    std::int64_t OptInt64(Key key, std::int64_t defaultValue = 0) const;
    Tesmo::System::String OptString(Key key, const Tesmo::System::String& defaultValue = {}) const;
    JSONObject OptObject(Key key) const; ///< an empty object where it is missing
    JSONObject OptObject(Key key, const JSONObject& defaultValue) const;

    /// Fetch a value and take it out of the document. False, and no change, where it is missing. A document may take
    /// a part of its own into itself: it is a copy of that part then.
    bool Take(Key key, std::int32_t& value);
    bool Take(Key key, double& value);
    bool Take(Key key, bool& value);
    bool Take(Key key, Tesmo::System::Object& value);

    /// Append a member, also when the name is there already; put an element before the one at the index, or at the end
    /// where the index is not below the length.
    /// @throws ArgumentOutOfRangeException  the index is negative
    void Put(Key key, std::int32_t value);
    void Put(Key key, std::uint32_t value);
    void Put(Key key, std::int64_t value);
    void Put(Key key, std::uint64_t value);
    void Put(Key key, double value);
    template <std::same_as<bool> T> // a pointer would convert
    void Put(Key key, T value)
    {
        PutBoolean(key, value);
    }
    void Put(Key key, const char* value);                  ///< puts null for a null pointer
    void Put(Key key, const Tesmo::System::String& value); ///< puts null for null
    /// Put a copy. @throws FormatException  this document would then nest too deep to be read again
    void Put(Key key, const JSONObject& value);
    void Put(Key key, const JSONArray& value);

    /// Puts null for the null reference, else by the class of value as JSONStringer::Value does.
    /// @throws FormatException  the class has no JSON form
    void Put(Key key, const Tesmo::System::Object& value);

    /// True where the member or element exists.
    bool Has(Key key) const;
    /// True where the member or element is missing, or is JSON null.
    bool IsNull(Key key) const;
    /// True where there is a member or element of the kind.
    bool IsObject(Key key) const;
    bool IsArray(Key key) const;

protected:
    JSONAccess() = default;
    JSONAccess(const JSONAccess&) = default;
    JSONAccess& operator=(const JSONAccess&) = default;
    ~JSONAccess() = default;

private:
    void PutBoolean(Key key, bool value);
    const cJSON* Find(Key key, Site site = Site::Here()) const;
    const cJSON* FindKind(Key key, int kind, Site site = Site::Here()) const;
    const cJSON& Required(Key key, int kind, Site site) const;
    template <class T>
    bool TryGetNumber(Key key, T& value) const;
    template <class T>
    void PutDocument(Key key, const T& value);
    template <class T>
    bool TakeValue(Key key, T& value);
};
} // namespace Zelkor::Serialization::Json
