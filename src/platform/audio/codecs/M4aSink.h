// Writes M4A files with Apple Lossless or AAC.
#pragma once

#include "platform/audio/EncodingSink.h"
#include "platform/audio/codecs/AudioEncoder.h"

namespace zolt {

class M4aSink : public EncodingSink
{
public:
    M4aSink(QString path, const AudioFormat& format) : path_(std::move(path)), format_(format) {}
    ~M4aSink() override;

    /// True if the encoder takes the format; nothing is written.
    static AudioStatus check(const AudioFormat& format);

    void setSettings(const EncoderSettings& settings) override { settings_ = settings; }

    AudioStatus begin() override;
    SampleShape shape() const override { return encoder_.shape(); }
    AudioStatus write(const SampleBlock& block) override;
    AudioStatus writeBytes(const uint8_t*, int64_t) override { return audioStatus::UnsupportedFormat; }
    AudioStatus finish() override;

private:
    AudioStatus openFile();
    AudioStatus makeStream();
    AudioStatus writeHeader(bool empty);
    AudioStatus writePacket(AVPacket& packet);
    AudioStatus writeTrailer();
    AudioStatus closeFile();

    const QString path_;
    const AudioFormat format_;
    EncoderSettings settings_;
    AudioEncoder encoder_;
    AVFormatContext* muxer_ = nullptr;
    bool headerWritten_ = false;
    bool failed_ = false; ///< a write failed
};

} // namespace zolt
