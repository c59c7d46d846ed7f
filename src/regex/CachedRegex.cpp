#include "regex/CachedRegex.h"

#include "regex/Bookkeeping.h"

namespace zolt {

bool CachedRegex::isOfSamePattern(RegexText pattern, std::uint32_t withOptions) const
{
    return icu && options == withOptions && regexString.text().isSame(pattern);
}

bool CachedRegex::isOfEqualPattern(RegexText pattern, std::uint32_t withOptions) const
{
    return icu && options == withOptions && (regexString.text().isSame(pattern) || regexString.text() == pattern);
}

void CachedRegex::open(const char16_t* units, UParseError& position, UErrorCode& status)
{
    RKL_REQUIRE(!icu && units);
    icu.reset(uregex_open(units, static_cast<int32_t>(regexString.text().length()), options, &position, &status));
    if (U_SUCCESS(status)) captureCount = uregex_groupCount(icu.get(), &status);
}

void CachedRegex::setSubject(RegexText subject, const TextRange& range, ConversionBuffers& buffers, UErrorCode& status)
{
    RKL_REQUIRE(icu && range.liesWithin(subject.length()));
    const std::size_t hash = subject.hash();
    const bool stays = setToString.text().isSame(subject) && setToLength == subject.length() && setToHash == hash;
    if (!stays) holdSubject(subject, hash);
    if (findUnits(buffers)) forgetRanges();
    if (setToRange == range) return;
    setToRange = TextRange();
    uregex_setText(icu.get(), setToUniChar + range.location, static_cast<int32_t>(range.length), &status);
    if (U_SUCCESS(status)) setToRange = range;
}

void CachedRegex::holdSubject(RegexText subject, std::size_t hash)
{
    forgetRanges();
    setToString.keep(subject);
    setToHash = hash;
    setToLength = subject.length();
    setToNeedsConversion = subject.encoded() != nullptr;
    setToUniChar = nullptr;
    buffer = nullptr;
}

/// Finds the characters of the held subject; true if `icu` does not read them yet.
bool CachedRegex::findUnits(ConversionBuffers& buffers)
{
    const char16_t* before = setToUniChar;
    bool isNew = false;
    if (setToNeedsConversion) {
        const ConversionBuffers::Filled filled = buffers.bufferFor(setToString.text(), setToHash);
        buffer = filled.buffer;
        isNew = filled.isNew;
        setToUniChar = buffer->uniChar;
    } else {
        setToUniChar = setToString.text().directUnits();
    }
    RKL_REQUIRE(setToUniChar);
    return isNew || setToUniChar != before;
}

void CachedRegex::forgetRanges()
{
    setToRange = lastFindRange = lastMatchRange = TextRange();
}

void CachedRegex::clear()
{
    icu.reset();
    captureCount = -1;
    holdSubject(RegexText(), 0);
    regexString.drop();
    regexHash = 0;
    options = 0;
}

} // namespace zolt
