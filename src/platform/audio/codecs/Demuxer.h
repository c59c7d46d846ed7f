// One audio stream out of a container, through the codec libraries. No probing of contents: the container is known
// from its signature, so nothing else is ever tried.
#pragma once

#include "platform/audio/AudioStatus.h"
#include "platform/audio/Container.h"
#include "platform/audio/codecs/CodecHandles.h"

namespace zolt {

/// A demuxer over one file, giving the packets of its first audio stream. One thread at a time.
class Demuxer
{
public:
    /// Opens the file and reads its header.
    /// @return UnsupportedFormat if it holds no audio stream
    AudioStatus open(const QString& path, Container container);

    /// The audio stream; valid while the demuxer is.
    const AVStream& stream() const { return *stream_; }

    /// Where the demuxer stands in the file; behind open() that is where the samples start.
    int64_t position() const { return avio_tell(context_->pb); }

    /// The next packet of the audio stream.
    /// @param packet emptied first; stays empty at the end
    AudioStatus next(AVPacket& packet);

private:
    AudioStatus findStream(Container container);

    CodecHandle<AVFormatContext> context_;
    AVStream* stream_ = nullptr;
};

} // namespace zolt
