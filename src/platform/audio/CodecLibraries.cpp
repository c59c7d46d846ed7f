#include "platform/audio/CodecLibraries.h"

extern "C" {
#include <libavutil/log.h>
#include <libavutil/mem.h>
}

namespace zolt {

namespace {

/// The largest piece of memory at once. An index of this size is that of an audio file of weeks; what asks for more
/// is a damaged header.
constexpr size_t largestAllocation = size_t(64) << 20;

} // namespace

void prepareCodecLibraries()
{
    static std::once_flag done;
    std::call_once(done, [] {
        av_max_alloc(largestAllocation);
        av_log_set_level(AV_LOG_QUIET); // faults come back as statuses; the libraries would print them
    });
}

} // namespace zolt
