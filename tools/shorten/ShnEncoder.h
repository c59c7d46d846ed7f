// Makes a Shorten file of a WAV file.
#pragma once

#include "audio/WavReader.h"
#include "shorten/ShnHeader.h"

namespace zolt::companion {

class ShnEncoder
{
public:
    /// @param wav     outlives this object; 8 or 16 bits
    /// @param output  likewise
    ShnEncoder(WavReader& wav, Output& output);

    /// Encodes the whole file: what stands around its samples is kept as it is.
    /// @throws Failure
    void encode();

private:
    void writeBytes(const Bytes& bytes);
    void writeTrailer();
    void writeBlocks(unsigned blockSize);
    void writeBlock(std::vector<int>& samples, unsigned blockSize);

    WavReader& wav_;
    Output& output_;
    BitWriter bits_;
    ShnHeader header_;
    unsigned blockSize_;
    Bytes block_;
    std::vector<std::vector<int>> channels_; ///< the last samples, then room for a block
};

} // namespace zolt::companion
