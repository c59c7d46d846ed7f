// Conversion between sample formats and rates.
#pragma once

#include "platform/audio/AudioStatus.h"
#include "platform/audio/CodecHandles.h"
#include "platform/audio/SampleBlock.h"

namespace zolt {

/// A sample format of the codec libraries at a rate.
struct SampleShape
{
    AVSampleFormat format = AV_SAMPLE_FMT_NONE;
    int rate = 0;

    bool operator==(const SampleShape&) const = default;
};

/// Converts a stream block by block, the number of channels unchanged. Blocks pass through untouched where both shapes
/// are the same. One thread at a time.
class SampleConverter
{
public:
    /// @return UnsupportedFormat if there is no way from one shape to the other
    AudioStatus open(const SampleShape& from, const SampleShape& to, int channels);

    /// @param in  must stay valid as long as `out` is used
    /// @param out may hold no frames while a change of rate gathers input
    AudioStatus convert(const SampleBlock& in, SampleBlock& out);

    /// What is still to come when the input has ended; empty once all is given.
    AudioStatus flush(SampleBlock& out);

private:
    AudioStatus run(const SampleBlock& in, SampleBlock& out);
    bool makeRoom(int frames);

    SampleShape to_;
    int channels_ = 0;
    CodecHandle<SwrContext> resampler_; ///< none where blocks pass through
    bool changesRate_ = false;
    CodecHandle<AVFrame> room_;
    int roomFrames_ = 0;
};

} // namespace zolt
