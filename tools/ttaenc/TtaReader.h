// Reads the frames of a TTA file, several at a time and each checked.
#pragma once

#include "ttaenc/TtaFrameDecoder.h"

#include <future>

namespace zolt::companion {

class TtaReader
{
public:
    /// @param source  outlives this object
    /// @throws Failure
    explicit TtaReader(ByteSource& source);

    const TtaHeader& header() const { return header_; }
    bool atEnd() const { return next_ == lengths_.size(); }

    /// Takes the samples of the next frame; of one that is damaged, as much silence.
    /// @return whether the frame is as it was written
    /// @throws Failure (Read) where the file is cut, behind the last frame that is there
    bool read(Bytes& samples);

private:
    /// One frame on its way, on a thread of its own.
    struct Ahead
    {
        Ahead(const TtaHeader& header, const std::string& name) : decoder(header, name) {}

        TtaFrameDecoder decoder;
        Bytes data, samples;
        std::future<bool> whole;
    };
    void readAhead();
    void begin(Ahead& ahead, std::uint32_t frame);
    Ahead& placeOf(std::uint32_t frame) { return *ahead_[frame % ahead_.size()]; }

    ByteSource& source_;
    TtaHeader header_;
    std::vector<std::uint32_t> lengths_; ///< in bytes
    std::uint32_t next_ = 0, begun_ = 0;
    std::vector<std::unique_ptr<Ahead>> ahead_;
};

} // namespace zolt::companion
