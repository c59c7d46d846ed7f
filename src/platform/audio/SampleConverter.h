// Conversion between sample formats and rates.
#pragma once

#include "platform/audio/AudioStatus.h"
#include "platform/audio/SampleBlock.h"

#include <memory>

namespace zolt {

/// A sample format of the codec libraries at a rate.
struct SampleShape
{
    int format = -1; ///< an AVSampleFormat
    int rate = 0;

    bool operator==(const SampleShape&) const = default;
};

/// Converts a stream from one shape to another block by block, the number of channels unchanged.
class SampleTransform
{
public:
    virtual ~SampleTransform() = default;

    /// @param in  must stay valid as long as `out` is used
    /// @param out may hold no frames while a change of rate gathers input
    virtual AudioStatus convert(const SampleBlock& in, SampleBlock& out) = 0;

    /// What is still to come when the input has ended; empty once all is given.
    virtual AudioStatus flush(SampleBlock& out) = 0;
};

/// A transform where one is needed; where both shapes are the same, blocks pass through untouched. One thread at a
/// time.
class SampleConverter
{
public:
    /// @return UnsupportedFormat if there is no way from one shape to the other
    AudioStatus open(const SampleShape& from, const SampleShape& to, int channels);

    /// As for SampleTransform.
    AudioStatus convert(const SampleBlock& in, SampleBlock& out);
    AudioStatus flush(SampleBlock& out);

private:
    std::unique_ptr<SampleTransform> transform_;
};

} // namespace zolt
