// An encoder of the codec libraries: takes samples in any amounts, gives packets.
#pragma once

#include "platform/audio/SampleConverter.h"
#include "platform/audio/codecs/EncoderTuning.h"

#include <functional>

namespace zolt {

/// One thread at a time.
class AudioEncoder
{
public:
    using PacketTaker = std::function<AudioStatus(AVPacket& packet)>;

    /// Opens the encoder for a format; what it can't take exactly is refused.
    /// @param format 'alac' with the flags of 16, 20 or 24 bits (20 are stored as 24), or 'aac '
    /// @return UnsupportedFormat, also for a rate or a number of channels that the encoder does not have
    AudioStatus open(const AudioFormat& format, const EncoderSettings& settings);

    const AVCodecContext& context() const { return *encoder_; }
    SampleShape shape() const { return {encoder_->sample_fmt, encoder_->sample_rate}; }

    /// Takes samples of `shape()`; packets that get full on the way go to `take`.
    AudioStatus write(const SampleBlock& block, const PacketTaker& take);
    /// Encodes what is left over and gives the last packets. Not behind a failed write.
    AudioStatus finish(const PacketTaker& take);

private:
    AudioStatus makeFrame();
    AudioStatus encodeFrame(int frames, const PacketTaker& take);
    AudioStatus drain(const PacketTaker& take);

    CodecHandle<AVCodecContext> encoder_;
    CodecHandle<AVAudioFifo> fifo_;
    CodecHandle<AVFrame> frame_;
    CodecHandle<AVPacket> packet_;
    int64_t framesTaken_ = 0;
};

} // namespace zolt
