// Reads the frames of a Monkey's Audio file, each checked.
#pragma once

#include "mac/ApeDemuxer.h"

namespace zolt::companion {

class ApeReader
{
public:
    /// @param hasFrameSums  whether the checksums of frames are those of files from 3.90 on
    /// @throws Failure
    ApeReader(const std::string& path, bool hasFrameSums);

    const PcmFormat& format() const { return format_; }
    std::uint64_t samples() const { return demuxer_.samples(); }
    bool atEnd() const { return read_ == samples(); }
    std::uint64_t samplesRead() const { return read_; }

    /// Takes the samples of the next frame; silence stands for what a damaged one does not give.
    /// @return whether the frame is as it was written
    /// @throws Failure (Read) where the file is cut
    bool read(Bytes& samples);

private:
    std::string name_;
    bool hasFrameSums_;
    ApeDemuxer demuxer_;
    PcmFormat format_;
    CodecDecoder decoder_;
    std::uint64_t read_ = 0;
};

} // namespace zolt::companion
