// What one call asks of the regular-expression layer.
#pragma once

#include "regex/RegexText.h"

#include <cstdint>
#include <optional>

namespace zolt {

/// One search, or one replacement of all matches. Made by one of the two static functions; borrows its texts.
struct RegexRequest
{
    const char* method;
    bool replaces;
    RegexText subject;
    RegexText pattern;
    RegexText replacement;
    std::uint32_t options = 0;      ///< ICU's flags
    std::optional<TextRange> range; ///< what is searched; the whole subject if absent

    static RegexRequest stringByMatching(RegexText subject, RegexText pattern)
    {
        return {"stringByMatching", false, subject, pattern, {}, 0, {}};
    }
    static RegexRequest stringByReplacingOccurrencesOfRegexWithString(RegexText subject, RegexText pattern,
                                                                      RegexText replacement)
    {
        return {"stringByReplacingOccurrencesOfRegexWithString", true, subject, pattern, replacement, 0, {}};
    }

    TextRange searchedRange() const { return range.value_or(TextRange{0, subject.length()}); }
};

} // namespace zolt
