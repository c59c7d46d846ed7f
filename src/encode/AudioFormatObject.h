// What is known about a file's audio: a plain record, filled by CoreAudioHelper and by the FLAC tag helper.
#pragma once

#include <cstdint>

namespace zolt {

class AudioFormatObject
{
public:
    /// Frames a second.
    int32_t sampleRate() const { return sampleRate_; }
    void setSampleRate(int32_t sampleRate) { sampleRate_ = sampleRate; }

    int32_t bitsPerChannel() const { return bitsPerChannel_; }
    void setBitsPerChannel(int32_t bitsPerChannel) { bitsPerChannel_ = bitsPerChannel; }

    int32_t channels() const { return channels_; }
    void setChannels(int32_t channels) { channels_ = channels; }

    /// Frames in the file; a frame holds one sample of each channel.
    int64_t totalSamples() const { return totalSamples_; }
    void setTotalSamples(int64_t totalSamples) { totalSamples_ = totalSamples; }

    /// The length in seconds. A record without a rate gives what a float division by zero gives: it does not fault.
    double time() const;

private:
    int32_t sampleRate_ = 0;
    int32_t bitsPerChannel_ = 0;
    int32_t channels_ = 0;
    int64_t totalSamples_ = 0;
};

} // namespace zolt
