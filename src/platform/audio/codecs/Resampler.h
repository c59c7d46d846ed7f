// Changes of sample format and rate through the codec libraries.
#pragma once

#include "platform/audio/SampleConverter.h"
#include "platform/audio/codecs/CodecHandles.h"

namespace zolt {

class Resampler : public SampleTransform
{
public:
    /// @return UnsupportedFormat if there is no way from one shape to the other
    AudioStatus open(const SampleShape& from, const SampleShape& to, int channels);

    AudioStatus convert(const SampleBlock& in, SampleBlock& out) override { return run(in, out); }
    AudioStatus flush(SampleBlock& out) override;

private:
    AudioStatus run(const SampleBlock& in, SampleBlock& out);
    bool makeRoom(int frames);

    int format_ = -1; ///< of what comes out
    int channels_ = 0;
    CodecHandle<SwrContext> resampler_;
    bool changesRate_ = false;
    CodecHandle<AVFrame> room_;
    int roomFrames_ = 0;
};

} // namespace zolt
