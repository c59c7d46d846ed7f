// The two regular-expression operations on texts. Any thread; a pattern is compiled once and kept.
#pragma once

#include "regex/RegexText.h"

namespace zolt {

struct RegexCache;

/// The text of the first match of the pattern in the subject.
/// @param subject  searched whole; no subject gives nothing
/// @param pattern  in ICU's syntax, with no options
/// @return nothing if there is no match: callers take that as false
/// @throws InvalidArgumentException if there is no pattern
/// @throws RangeException if a text is too long for ICU
/// @throws PlatformException named RKLICURegexException, with the facts of RegexErrorKeys.h, for what ICU reports
OptionalText stringByMatching(RegexText subject, RegexText pattern);

/// A new text with all matches of the pattern replaced.
/// @param replacement  in ICU's syntax: "$1" stands for a group, a backslash takes the next character as it is
/// @return nothing only if there is no subject; the subject where nothing matches
/// @throws as stringByMatching; InvalidArgumentException also if there is no replacement
OptionalText stringByReplacingOccurrencesOfRegexWithString(RegexText subject, RegexText pattern, RegexText replacement);

/// The same for a subject that there is, so that the result is too.
inline QString stringByReplacingOccurrencesOfRegexWithString(const QString& subject, RegexText pattern,
                                                             RegexText replacement)
{
    return *stringByReplacingOccurrencesOfRegexWithString(RegexText(subject), pattern, replacement);
}

/// The program's one cache, which both operations use. Never destroyed: task threads may search until the very end.
RegexCache& sharedRegexCache();

} // namespace zolt
