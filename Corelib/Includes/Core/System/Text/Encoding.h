#pragma once

#include <Core/System/Array.h>
#include <Core/System/Char32.h>
#include <Core/System/Checks.h>
#include <Core/System/Object.h>
#include <Core/System/String.h>
#include <Core/System/Up.h>

#include <array>
#include <optional>

namespace Tesmo::System::Text
{
/// Turns text into bytes and back, one code point at a time. The family is closed: nine code pages. What a code page
/// lacks becomes '?'. An object has no state but its flags and may be shared by threads.
///
/// Every operation on buffers gives ArgumentNullException for a null buffer (with an index and a count: if the count is
/// positive) and ArgumentOutOfRangeException for a range that does not lie in it.
class Encoding : public Object
{
public:
    using ByteArray = Array<unsigned char>;
    using CharArray = Array<char32>;

    class Encoder;
    class Decoder;

    /// Factories: the preamble flag is set.
    static Up<Encoding> ASCII();
    static Up<Encoding> UTF8();
    static Up<Encoding> Unicode(); ///< UTF-16, little endian
    static Up<Encoding> BigEndianUnicode();
    static Up<Encoding> UTF32(); ///< little endian
    /// @throws NotSupportedException  codePage is none of the family
    static Up<Encoding> GetEncoding(int codePage);
    /// @param webName  compared with regard to case
    /// @throws ArgumentNullException  webName is null
    /// @throws NotSupportedException  webName is none of the family
    static Up<Encoding> GetEncoding(const String& webName);

    /// Decodes by source and encodes by destination, without a preamble.
    /// @throws ArgumentNullException  an encoding is null
    static ByteArray Convert(const Encoding& source, const Encoding& destination, const ByteArray& bytes);
    static ByteArray Convert(const Encoding& source, const Encoding& destination, const ByteArray& bytes, int index,
                             int count);

    bool Equals(const Object& other) const override; ///< true for the same code page
    String ToString() const override;                ///< the web name
    ~Encoding() override = default;
    virtual int CodePage() const;      ///< the number that GetEncoding takes, such as 65001
    virtual String WebName() const;    ///< the name that GetEncoding takes, such as "utf-8"
    virtual bool IsSingleByte() const; ///< true where every code point takes one byte
    /// How many bytes GetBytes gives for c; 0 where the encoding leaves it out.
    virtual int GetByteCount(char32 c) const = 0;
    /// Writes the bytes of one code point at index.
    /// @returns the number of bytes
    virtual int GetBytes(char32 c, ByteArray& bytes, int index) const;
    /// How many code points GetChars gives for the bytes.
    virtual int GetCharCount(const ByteArray& bytes, int index, int count) const;
    /// Bounds for buffers.
    /// @throws ArgumentOutOfRangeException  the argument is negative, or the bound does not fit an int
    virtual int GetMaxByteCount(int charCount) const;
    virtual int GetMaxCharCount(int byteCount) const;
    /// The bytes that mark the encoding at the start of a file; empty if it has none or was built without.
    virtual ByteArray GetPreamble() const;
    /// A new one each, for text that comes in pieces.
    virtual Up<Decoder> CreateDecoder() const = 0;
    virtual Up<Encoder> CreateEncoder() const = 0;
    /// Takes the flags of an encoding of the same class.
    /// @throws ArgumentException  other is of another class
    virtual Encoding& operator=(const Encoding& other);

    /// The bytes of a text, or of count code points from index on; no preamble.
    ByteArray GetBytes(const String& text) const;
    ByteArray GetBytes(const CharArray& chars) const;
    ByteArray GetBytes(const CharArray& chars, int index, int count) const;
    /// Fill bytes from byteIndex on.
    /// @returns the number of bytes
    int GetBytes(const String& text, int index, int count, ByteArray& bytes, int byteIndex) const;
    int GetBytes(const CharArray& chars, int index, int count, ByteArray& bytes, int byteIndex) const;

    /// How many bytes GetBytes gives for the same.
    int GetByteCount(const String& text) const;
    int GetByteCount(const CharArray& chars) const;
    int GetByteCount(const CharArray& chars, int index, int count) const;

    /// The code points of the bytes. A code point that is cut short at the end is left out, a preamble is not.
    CharArray GetChars(const ByteArray& bytes) const;
    CharArray GetChars(const ByteArray& bytes, int index, int count) const;
    int GetCharCount(const ByteArray& bytes) const;

    /// The same as a text.
    String GetString(const ByteArray& bytes) const;
    String GetString(const ByteArray& bytes, int index, int count) const;

protected:
    explicit Encoding(int codePage);
    Encoding(const Encoding&) = default;

    static void CheckRange(const ByteArray& bytes, int index, int count, CallSite site = CallSite::Here());
    static void CheckRange(const CharArray& chars, int index, int count, CallSite site = CallSite::Here());
    /// Four times a count of code points.
    /// @throws ArgumentOutOfRangeException  charCount is negative, or 2^29 or more
    static int FourBytesEach(int charCount, CallSite site = CallSite::Here());

private:
    int codePage;
};

/// Turns code points into bytes.
class Encoding::Encoder : public Object
{
public:
    /// The bytes of one code point; none where the encoding passes it over.
    struct Bytes
    {
        std::array<unsigned char, 4> values{};
        int count = 0;
    };

    /// Keeps nothing between calls, so the order of the code points does not matter.
    virtual Bytes Encode(char32 c) const = 0;
};

/// Turns bytes into code points. It keeps the bytes of a code point that is not complete yet, so it belongs to one
/// stream. Bytes that form no code point are passed over.
class Encoding::Decoder : public Object
{
public:
    /// The code point that this byte completes, if it completes one.
    virtual std::optional<char32> Decode(unsigned char byte) = 0;
};
} // namespace Tesmo::System::Text
