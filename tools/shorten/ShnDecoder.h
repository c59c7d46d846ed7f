// Gives back the file that a Shorten file was made of.
#pragma once

#include "shorten/ShnChannel.h"

namespace zolt::companion {

class ShnDecoder
{
public:
    /// Reads the header.
    /// @param source  outlives this object
    /// @throws Failure
    explicit ShnDecoder(ByteSource& source);

    /// Decodes to the end of the stream. What may follow it, a table for seeking, is not looked at.
    /// @throws Failure
    void decode(Output& output);

private:
    bool obey(unsigned command, Output& output);
    void copyBytes(Output& output);
    void readBlock(unsigned command, Output& output);
    void writeBlocks(Output& output);
    void setBlockSize();
    void setShift();
    void end() const;

    unsigned version_;
    BitReader bits_;
    ShnHeader header_;
    std::vector<ShnChannel> channels_;
    unsigned next_ = 0; ///< the channel of the next block
    unsigned blockSize_, shift_ = 0;
    Bytes block_;
};

} // namespace zolt::companion
