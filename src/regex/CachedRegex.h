// One compiled expression and the subject that is set on it.
#pragma once

#include "regex/ConversionBuffers.h"
#include "regex/KeptText.h"

#include <unicode/uregex.h>

#include <memory>

namespace zolt {

struct RegexCloser
{
    void operator()(URegularExpression* icu) const { uregex_close(icu); }
};

/// An entry of the cache. Guarded by the cache's lock.
struct CachedRegex
{
    KeptText regexString; ///< own copy of the pattern; no text if the entry is free
    std::size_t regexHash = 0;
    std::uint32_t options = 0; ///< ICU's flags
    std::unique_ptr<URegularExpression, RegexCloser> icu;
    std::ptrdiff_t captureCount = -1; ///< -1 while closed

    KeptText setToString; ///< the subject now set on `icu`; held, as `icu` reads its characters
    std::size_t setToHash = 0;
    qsizetype setToLength = 0;
    bool setToNeedsConversion = false;       ///< the subject's UTF-16 must be copied out
    const char16_t* setToUniChar = nullptr;  ///< the subject's own characters, or a buffer's
    TextRange setToRange;                    ///< the range set on `icu`; not found while none is
    TextRange lastFindRange, lastMatchRange; ///< where the last search stood and what it found
    ConversionBuffer* buffer = nullptr;      ///< where `setToUniChar` lives, if copied

    /// True if this is the compiled form of the very pattern object, or of one equal by value.
    bool isOfSamePattern(RegexText pattern, std::uint32_t withOptions) const;
    bool isOfEqualPattern(RegexText pattern, std::uint32_t withOptions) const;

    /// Compiles the characters of `regexString`. On an error status the entry is to be cleared.
    void open(const char16_t* units, UParseError& position, UErrorCode& status);
    /// Sets the range of a subject on `icu`, which has nothing to do if they are set already.
    /// @param range  lies within the subject, which has at most INT_MAX units
    /// @throws std::bad_alloc
    void setSubject(RegexText subject, const TextRange& range, ConversionBuffers& buffers, UErrorCode& status);
    /// Closes `icu` and lets go of subject and pattern.
    void clear();

private:
    void holdSubject(RegexText subject, std::size_t hash);
    bool findUnits(ConversionBuffers& buffers);
    void forgetRanges();
};

} // namespace zolt
