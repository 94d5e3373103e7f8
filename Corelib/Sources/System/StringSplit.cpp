#include <Core/System/String.h>

#include "CharacterPredicates.h"
#include <Core/System/Checks.h>

#include <limits>
#include <string_view>
#include <vector>

namespace Tesmo::System
{
namespace
{
/// Gathers the entries of one Split.
template <class Predicate>
class Splitter
{
public:
    Splitter(const ustring& wholeText, Predicate separatorTest, int maximumCount, StringSplitOptions splitOptions)
        : text(wholeText),
          isSeparator(separatorTest),
          count(static_cast<std::size_t>(maximumCount)),
          options(splitOptions)
    {
    }

    std::vector<String> Split()
    {
        entries.reserve(usualCount);
        for (auto position = text.begin(); position.byteIndex >= 0; ++position)
        {
            const bool atSeparator = isSeparator(*position);
            if (!atSeparator)
            {
                current += position.Sequence();
            }
            const bool atEnd = position.charIndex == text.Length() - 1;
            const bool isEntry = !current.empty() || options == StringSplitOptions::None;
            if ((!atSeparator && !atEnd) || !isEntry)
            {
                continue;
            }
            if (entries.size() == count - 1)
            {
                const auto here = static_cast<std::size_t>(position.byteIndex);
                AddLast(atSeparator ? here : here + position.Sequence().size());
                break;
            }
            entries.emplace_back(std::move(current));
            current.clear();
        }
        return std::move(entries);
    }

private:
    /// The last entry takes what remains of the text, separators included.
    void AddLast(std::size_t restPosition)
    {
        current += std::string_view(text.Bytes()).substr(restPosition);
        entries.emplace_back(std::move(current));
    }

    static constexpr std::size_t usualCount = 8; ///< addresses and versions have no more entries

    const ustring& text;
    Predicate isSeparator;
    std::size_t count;
    StringSplitOptions options;
    std::string current;
    std::vector<String> entries;
};

template <class Predicate>
Sp<Array<String>> SplitAt(const String& text, Predicate isSeparator, int count, StringSplitOptions options)
{
    if (count == 1)
    {
        return Sp<Array<String>>(new Array<String>(text));
    }
    return Sp<Array<String>>(new Array<String>(Splitter(text.Text(), isSeparator, count, options).Split()));
}

constexpr int NoLimit = std::numeric_limits<int>::max();
} // namespace

Sp<Array<String>> String::Split(char32 separator) const
{
    return SplitAt(*this, EqualTo(separator), NoLimit, StringSplitOptions::None);
}

Sp<Array<String>> String::Split(const Array<char32>& separators) const
{
    return Split(separators, NoLimit);
}

Sp<Array<String>> String::Split(const Array<char32>& separators, int count) const
{
    return Split(separators, count, StringSplitOptions::None);
}

Sp<Array<String>> String::Split(const Array<char32>& separators, int count, StringSplitOptions options) const
{
    if (NotNegative(count) == 0)
    {
        return Sp<Array<String>>(new Array<String>(0));
    }
    if (IsNull(separators))
    {
        return Sp<Array<String>>(new Array<String>(*this));
    }
    return SplitAt(*this, OneOf(separators), count, options);
}

String String::Join(const String& separator, const Array<String>& values)
{
    return Join(separator, values, 0, NotNull(values).Length());
}

String String::Join(const String& separator, const Array<String>& values, int startIndex, int count)
{
    NotNull(separator);
    CheckRange(startIndex, count, NotNull(values).Length());
    String result;
    for (int i = startIndex; i < startIndex + count; i++)
    {
        if (i > startIndex)
        {
            result += separator;
        }
        result += values[i];
    }
    return result;
}
} // namespace Tesmo::System
