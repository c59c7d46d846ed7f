// The cache of compiled expressions: 13 sets of 4 ways.
#pragma once

#include "regex/CachedRegex.h"
#include "regex/RegexFault.h"
#include "regex/ScratchBuffer.h"

#include <array>
#include <cstdint>

namespace zolt {

/// Finds the compiled form of a pattern: as the one used last, through a small table by the pattern's address,
/// in the set of its hash, and else by compiling it. Guarded by the cache's lock.
class CachedRegexTable
{
public:
    static constexpr std::size_t sets = 13;
    static constexpr std::size_t ways = LruState::ways;
    static constexpr std::size_t lookasides = 64;

    /// The entry for the pattern and ICU's flags.
    /// @param scratch  room for the pattern's characters, free again on return
    /// @return null if a fault was noted
    /// @throws std::bad_alloc
    CachedRegex* rkl_getCachedRegex(RegexText pattern, std::uint32_t options, ScratchBuffer& scratch,
                                    RegexFault& fault);

    static std::size_t setOf(std::size_t hash, std::uint32_t options) { return (hash ^ options) % sets; }
    static std::size_t lookasideOf(RegexText pattern, std::uint32_t options);

    const std::array<CachedRegex, sets * ways>& rkl_cachedRegexes() const { return rkl_cachedRegexes_; }
    const CachedRegex* rkl_lastCachedRegex() const { return rkl_lastCachedRegex_; }
    const std::array<std::uint8_t, lookasides>& rkl_regexLookasideCache() const { return rkl_regexLookasideCache_; }
    const std::array<LruState, sets>& rkl_cachedRegexCacheSets() const { return rkl_cachedRegexCacheSets_; }

private:
    CachedRegex* findInSet(RegexText pattern, std::size_t hash, std::uint32_t options);
    CachedRegex* compile(RegexText pattern, std::size_t hash, std::uint32_t options, ScratchBuffer& scratch,
                         RegexFault& fault);
    CachedRegex* taken(CachedRegex& entry, std::size_t lookaside);

    std::array<CachedRegex, sets * ways> rkl_cachedRegexes_;
    CachedRegex* rkl_lastCachedRegex_ = nullptr;
    std::array<std::uint8_t, lookasides> rkl_regexLookasideCache_{};
    std::array<LruState, sets> rkl_cachedRegexCacheSets_;
};

} // namespace zolt
