#include "regex/CachedRegexTable.h"

#include "regex/Bookkeeping.h"

namespace zolt {

namespace {

/// One less than INT_MAX: ICU counts a closing zero.
constexpr qsizetype longestPattern = 2147483646;

/// Compiles the entry's pattern from its own characters, or from a copy of them in scratch space.
void openEntry(CachedRegex& entry, ScratchBuffer& scratch, RegexFault& fault)
{
    UErrorCode status = U_ZERO_ERROR;
    UParseError position{};
    const RegexText pattern = entry.regexString.text();
    if (const char16_t* units = pattern.directUnits()) {
        entry.open(units, position, status);
    } else {
        scratch.withUnits(static_cast<std::size_t>(pattern.length()), [&](char16_t* copy) {
            pattern.copyUnits(copy);
            entry.open(copy, position, status);
        });
        scratch.freeAll();
    }
    fault.noteStatus(RegexFault::Kind::Compiling, status);
    if (fault) fault.notePosition(position);
}

} // namespace

std::size_t CachedRegexTable::lookasideOf(RegexText pattern, std::uint32_t options)
{
    const auto address = reinterpret_cast<std::uintptr_t>(pattern.identity());
    return ((options >> 4) + options + (address >> 4)) & (lookasides - 1);
}

CachedRegex* CachedRegexTable::rkl_getCachedRegex(RegexText pattern, std::uint32_t options, ScratchBuffer& scratch,
                                                  RegexFault& fault)
{
    if (rkl_lastCachedRegex_ && rkl_lastCachedRegex_->isOfSamePattern(pattern, options)) return rkl_lastCachedRegex_;

    const std::size_t lookaside = lookasideOf(pattern, options);
    const std::size_t number = rkl_regexLookasideCache_[lookaside];
    RKL_REQUIRE(number < rkl_cachedRegexes_.size());
    CachedRegex& aside = rkl_cachedRegexes_[number];
    if (aside.isOfEqualPattern(pattern, options)) return taken(aside, lookaside);

    const std::size_t hash = pattern.hash();
    CachedRegex* entry = findInSet(pattern, hash, options);
    if (!entry) entry = compile(pattern, hash, options, scratch, fault);
    return entry ? taken(*entry, lookaside) : nullptr;
}

CachedRegex* CachedRegexTable::findInSet(RegexText pattern, std::size_t hash, std::uint32_t options)
{
    const std::size_t first = setOf(hash, options) * ways;
    for (std::size_t way = ways; way-- > 0;) {
        CachedRegex& entry = rkl_cachedRegexes_[first + way];
        if (entry.regexHash == hash && entry.isOfEqualPattern(pattern, options)) return &entry;
    }
    return nullptr;
}

CachedRegex* CachedRegexTable::compile(RegexText pattern, std::size_t hash, std::uint32_t options,
                                       ScratchBuffer& scratch, RegexFault& fault)
{
    const std::size_t set = setOf(hash, options);
    CachedRegex& entry =
        rkl_cachedRegexes_[set * ways + static_cast<std::size_t>(rkl_cachedRegexCacheSets_[set].victim())];
    entry.clear();
    if (pattern.length() > longestPattern) {
        fault.noteRange("Regex string length exceeds INT_MAX");
        return nullptr;
    }
    entry.regexString.keep(pattern);
    entry.regexHash = hash;
    entry.options = options;
    openEntry(entry, scratch, fault);
    if (!fault) return &entry;
    entry.clear();
    return nullptr;
}

/// The entry as the one used last, found by the pattern's address from now on.
CachedRegex* CachedRegexTable::taken(CachedRegex& entry, std::size_t lookaside)
{
    const std::ptrdiff_t number = &entry - rkl_cachedRegexes_.data();
    RKL_REQUIRE(number >= 0 && number < static_cast<std::ptrdiff_t>(rkl_cachedRegexes_.size()));
    rkl_lastCachedRegex_ = &entry;
    rkl_regexLookasideCache_[lookaside] = static_cast<std::uint8_t>(number);
    rkl_cachedRegexCacheSets_[static_cast<std::size_t>(number) / ways].touch(static_cast<int>(number) % LruState::ways);
    return &entry;
}

} // namespace zolt
