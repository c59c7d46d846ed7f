#include "regex/RegexOperation.h"

#include "platform/errors/Exceptions.h"
#include "regex/Bookkeeping.h"

#include <limits>

namespace zolt {

namespace {

constexpr qsizetype longestText = std::numeric_limits<int>::max();
constexpr const char* textTooLong = "String length exceeds INT_MAX.";

void require(RegexText argument, const char* fault, const RegexRequest& request)
{
    if (argument.isPresent()) return;
    const QString where = rkl_stringFromClassAndMethod(request.subject.className(), request.method);
    throw InvalidArgumentException(where + QStringLiteral(": ") + QString::fromLatin1(fault));
}

/// That many units, or as many as ICU can count.
std::size_t capacityOf(std::int64_t units)
{
    return static_cast<std::size_t>(std::min<std::int64_t>(units, longestText));
}

/// The room that the first pass gets: enough unless the replacements make the text more than half as long again.
std::size_t firstCapacity(qsizetype subjectLength, qsizetype replacementLength)
{
    return capacityOf(subjectLength + subjectLength / 2 + 16 + 2 * replacementLength);
}

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
    const TextRange range_;
    CacheSpinLockStatus lockStatus_;
    ScratchBuffer::Blocks blocks_; // what leave() took along
    CachedRegex* entry_ = nullptr;
    RegexFault fault_;
    TextRange found_;
    OptionalText replaced_; // the text that replacing has made
    int replacedCount_ = 0;
    std::int64_t neededUnits_ = 0;
    bool hasOverflowed_ = false;
};

RegexOperation::RegexOperation(RegexCache& cache, const RegexRequest& request)
    : cache_(cache), request_(request), range_(request.searchedRange()),
      lockStatus_(cache.rkl_cacheSpinLock, cache.warnings)
{
}

RegexOperation::~RegexOperation()
{
    // Only an exception gets here with the lock held; the clean-up of lockStatus_ drops it after this.
    if (!hasLeft()) cache_.rkl_scratchBuffer.freeAll();
}

OptionalText RegexOperation::perform()
{
    if (rkl_getCachedRegexSetToString()) {
        request_.replaces ? rkl_replaceString() : match();
    }
    if (!hasLeft()) leave();
    if (fault_) raiseFault(fault_, request_, {textOrEmpty(replaced_), replacedCount_});
    if (replacedCount_ > 0) return std::move(replaced_);
    if (request_.replaces) return request_.subject.text(range_);
    return found_.isFound() ? OptionalText(request_.subject.text(found_)) : std::nullopt;
}

bool RegexOperation::rkl_getCachedRegexSetToString()
{
    entry_ =
        cache_.expressions.rkl_getCachedRegex(request_.pattern, request_.options, cache_.rkl_scratchBuffer, fault_);
    if (!entry_ || !isSearchable()) return false;
    UErrorCode status = U_ZERO_ERROR;
    entry_->setSubject(request_.subject, range_, cache_.buffers, status);
    noteRunStatus(status);
    return !fault_;
}

bool RegexOperation::isSearchable()
{
    if (!range_.liesWithin(request_.subject.length())) {
        fault_.noteRange("Range or index out of bounds.");
    } else if (request_.subject.length() > longestText || request_.replacement.length() > longestText) {
        fault_.noteRange(textTooLong);
    }
    return !fault_;
}

void RegexOperation::match()
{
    URegularExpression* icu = entry_->icu.get();
    UErrorCode status = U_ZERO_ERROR;
    // Positions are those of the text set on `icu`, which starts where the range does.
    if (uregex_find(icu, 0, &status)) {
        const int start = uregex_start(icu, 0, &status);
        found_ = {range_.location + start, uregex_end(icu, 0, &status) - start};
    }
    noteRunStatus(status);
    entry_->lastFindRange = range_;
    entry_->lastMatchRange = found_;
}

void RegexOperation::rkl_replaceString()
{
    const RegexText replacement = request_.replacement;
    if (const char16_t* units = replacement.directUnits()) {
        replaceBy(units);
        return;
    }
    cache_.rkl_scratchBuffer.withUnits(static_cast<std::size_t>(replacement.length()), [&](char16_t* copy) {
        replacement.copyUnits(copy);
        replaceBy(copy);
    });
}

void RegexOperation::replaceBy(const char16_t* replacement)
{
    const std::size_t capacity = firstCapacity(range_.length, request_.replacement.length());
    if (replaceInto(capacity, replacement)) return;
    if (neededUnits_ > longestText) {
        fault_.noteRange(textTooLong);
    } else {
        const bool isComplete = replaceInto(capacityOf(neededUnits_ + 8), replacement);
        RKL_REQUIRE(isComplete);
    }
}

/// One pass. On overflow false, with the needed units counted; else the lock is dropped and the text made.
bool RegexOperation::replaceInto(std::size_t capacity, const char16_t* replacement)
{
    cache_.rkl_scratchBuffer.withUnits(capacity, [&](char16_t* room) {
        char16_t* end = room;
        rkl_replaceAll(end, capacity, replacement);
        if (hasOverflowed_ && !fault_) return;
        leave();
        // The room is this thread's own after the unlock as well: its stack, or a block that was taken along.
        if (replacedCount_ > 0) replaced_.emplace(reinterpret_cast<QChar*>(room), end - room);
    });
    return hasLeft();
}

void RegexOperation::rkl_replaceAll(char16_t*& buffer, std::size_t capacity, const char16_t* replacement)
{
    URegularExpression* icu = entry_->icu.get();
    const int length = static_cast<int>(request_.replacement.length());
    int room = static_cast<int>(capacity);
    UErrorCode findStatus = U_ZERO_ERROR;
    UErrorCode status = U_ZERO_ERROR;
    replacedCount_ = 0;
    neededUnits_ = 0;
    entry_->lastFindRange = entry_->lastMatchRange = TextRange();
    uregex_reset(icu, 0, &findStatus);
    // An overflow does not end the loop: ICU goes on to count what is needed.
    while (uregex_findNext(icu, &findStatus)) {
        neededUnits_ += uregex_appendReplacement(icu, replacement, length, &buffer, &room, &status);
        if (U_FAILURE(status) && status != U_BUFFER_OVERFLOW_ERROR) break;
        ++replacedCount_;
    }
    // Without a match nobody reads the buffer: the subject itself is the result.
    if (U_SUCCESS(findStatus) && replacedCount_ > 0) neededUnits_ += uregex_appendTail(icu, &buffer, &room, &status);
    hasOverflowed_ = status == U_BUFFER_OVERFLOW_ERROR;
    noteRunStatus(findStatus);
    if (!hasOverflowed_) noteRunStatus(status);
}

/// Drops the lock. Scratch blocks that are still read come along.
void RegexOperation::leave()
{
    if (cache_.rkl_scratchBuffer.blocksInUse() > 0) blocks_ = cache_.rkl_scratchBuffer.take();
    lockStatus_.unlock();
}

} // namespace

OptionalText rkl_performRegexOp(RegexCache& cache, const RegexRequest& request)
{
    if (!request.subject.isPresent()) return std::nullopt;
    require(request.pattern, "The regular expression argument is NULL.", request);
    if (request.replaces) require(request.replacement, "The replacement string argument is NULL.", request);
    return RegexOperation(cache, request).perform();
}

} // namespace zolt
