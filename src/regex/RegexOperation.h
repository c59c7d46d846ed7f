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

} // namespace zolt
