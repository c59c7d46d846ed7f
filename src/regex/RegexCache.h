// Everything that one lock of the regular-expression layer guards.
#pragma once

#include "regex/CacheSpinLockStatus.h"
#include "regex/CachedRegexTable.h"
#include "regex/ConversionBuffers.h"
#include "regex/ScratchBuffer.h"

namespace zolt {

/// Compiled expressions, the subjects set on them, and room for copies. An ICU handle holds its subject, so all use of
/// one happens under the lock. The program has one cache, tests look into their own.
struct RegexCache
{
    CacheSpinLock rkl_cacheSpinLock;
    LockWarnings warnings;
    CachedRegexTable expressions;
    ConversionBuffers buffers;
    ScratchBuffer rkl_scratchBuffer;
};

} // namespace zolt
