// Lays compressed frames out as a Monkey's Audio file of version 3.99.
#pragma once

#include "audio/Output.h"
#include "audio/PcmFormat.h"
#include "codec/Checksums.h"

namespace zolt::companion {

/// How many samples a channel every frame but the last one has.
constexpr std::uint32_t apeFrameSamples = 73728 * 4;

class ApeWriter
{
public:
    /// Leaves room for what stands ahead of the frames.
    /// @param output     outlives this object; can be rewritten
    /// @param samples    a channel, of the whole file; at least one
    /// @param wavHeader  is kept in the file
    ApeWriter(Output& output, const PcmFormat& format, unsigned level, std::uint32_t samples, const Bytes& wavHeader);

    void add(const Bytes& frame);

    /// Ends the file; all of it is written then, and the output is still to be finished.
    /// @param wavTrailer  is kept in the file
    void finish(const Bytes& wavTrailer);

private:
    std::uint32_t frames() const { return (samples_ - 1) / apeFrameSamples + 1; }
    std::size_t startBytes() const;
    void writeWords(std::size_t bytes);
    Bytes information() const;
    Bytes table() const;

    Output& output_;
    PcmFormat format_;
    unsigned level_;
    std::uint32_t samples_;
    Bytes wavHeader_;
    Md5 sum_;
    Bytes pending_;                     ///< of the stream of frames, less than a word between calls
    std::uint64_t stream_ = 0;          ///< bytes of frames so far
    std::vector<std::uint64_t> places_; ///< where each frame begins
};

} // namespace zolt::companion
