#include "platform/audio/codecs/CodecLibraries.h"

extern "C" {
#include <libavutil/log.h>
#include <libavutil/mem.h>
}

namespace zolt {

namespace {

/// The largest piece of memory at once. While an M4A file is written its index lies in one piece, some 64 bytes a
/// packet: this is room for a day of AAC. What asks for more is a damaged header.
constexpr size_t largestAllocation = size_t(256) << 20;

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
