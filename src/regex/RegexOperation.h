// The core that both regular-expression operations go through.
#pragma once

#include "regex/RegexCache.h"
#include "regex/RegexFault.h"
#include "regex/RegexRequest.h"

namespace zolt {

/// Performs the request. Any thread; the cache's lock is not held by the caller.
/// @return for a search the text of the first match, or nothing if there is none; for a replacement the text of the
///         searched range with all matches replaced; nothing if there is no subject
/// @throws InvalidArgumentException for a missing pattern or replacement
/// @throws RangeException for a range outside the subject, or a text that is too long for ICU
/// @throws PlatformException named RKLICURegexException for what ICU reports
OptionalText rkl_performRegexOp(RegexCache& cache, const RegexRequest& request);

/// One operation, from taking the lock to the result. Lives on the stack of the calling thread, once.
class RegexOperation
{
public:
    /// Takes the lock.
    RegexOperation(RegexCache& cache, const RegexRequest& request);
    ~RegexOperation();

    OptionalText perform();

private:
    bool rkl_getCachedRegexSetToString();
    bool isSearchable();
    void match();
    void rkl_replaceString();
    void replaceBy(const char16_t* replacement);
    bool replaceInto(std::size_t capacity, const char16_t* replacement);
    void rkl_replaceAll(char16_t*& buffer, std::size_t capacity, const char16_t* replacement);
    void noteRunStatus(UErrorCode status) { fault_.noteStatus(RegexFault::Kind::Running, status); }
    bool hasLeft() const { return (lockStatus_.word() & CacheSpinLockStatus::unlocked) != 0; }
    void leave();

    RegexCache& cache_;
    const RegexRequest& request_;
    CacheSpinLockStatus lockStatus_;
    ScratchBuffer::Blocks blocks_; // what leave() took along
    CachedRegex* entry_ = nullptr;
    RegexFault fault_;
    TextRange found_;
    PartialReplacement replaced_;
    std::int64_t neededUnits_ = 0;
    bool hasOverflowed_ = false;
};

} // namespace zolt
