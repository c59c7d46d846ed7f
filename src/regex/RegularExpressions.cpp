#include "regex/RegularExpressions.h"

#include "regex/RegexOperation.h"

namespace zolt {

RegexCache& sharedRegexCache()
{
    static RegexCache& cache = *new RegexCache;
    return cache;
}

OptionalText stringByMatching(RegexText subject, RegexText pattern)
{
    return rkl_performRegexOp(sharedRegexCache(), RegexRequest::stringByMatching(subject, pattern));
}

OptionalText stringByReplacingOccurrencesOfRegexWithString(RegexText subject, RegexText pattern, RegexText replacement)
{
    return rkl_performRegexOp(
        sharedRegexCache(), RegexRequest::stringByReplacingOccurrencesOfRegexWithString(subject, pattern, replacement));
}

} // namespace zolt
