// The samples of a file that needs a demuxer, and mostly a decoder.
#pragma once

#include "platform/audio/SampleSource.h"
#include "platform/audio/codecs/Demuxer.h"

namespace zolt {

/// A compressed stream, decoded as it is read.
class CodecSource : public SampleSource
{
public:
    /// @param demuxer open, and described by `format`
    CodecSource(QString path, Container container, Demuxer demuxer, const AudioFormat& format);

    AudioStatus lengthInFrames(int64_t& frames) override;
    AudioStatus readBlock(SampleBlock& block) override;
    AudioStatus prepare() override;
    int sampleFormat() const override;

private:
    AudioStatus nextFrame();
    AudioStatus feedDecoder();
    AudioStatus endOfStream() const;
    bool isLossless() const;

    QString path_;
    Container container_;
    Demuxer demuxer_;
    CodecHandle<AVCodecContext> decoder_;
    CodecHandle<AVPacket> packet_;
    CodecHandle<AVFrame> frame_;
    int64_t length_ = -1; ///< in frames, once asked for
    int64_t given_ = 0;   ///< frames handed out so far
    bool atEnd_ = false;
};

/// Opens a file through the codec libraries: linear data (CAF, AU) is then read as bytes, other data decoded.
AudioStatus openThroughCodecs(QFile& file, Container container, std::unique_ptr<SampleSource>& source);

} // namespace zolt
