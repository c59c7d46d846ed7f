// A stretch of a text.
#pragma once

#include <QtGlobal>

namespace zolt {

/// A location and a length in UTF-16 units.
struct TextRange
{
    static constexpr qsizetype notFound = -1;

    qsizetype location = notFound;
    qsizetype length = 0;

    bool isFound() const { return location != notFound; }
    /// True if all of the range lies inside a text of that many units.
    bool liesWithin(qsizetype textLength) const
    {
        return location >= 0 && length >= 0 && location <= textLength && length <= textLength - location;
    }
    bool operator==(const TextRange&) const = default;
};

} // namespace zolt
