// One channel of a Shorten stream while it is decoded.
#pragma once

#include "shorten/ShnHeader.h"

namespace zolt::companion {

class ShnChannel
{
public:
    explicit ShnChannel(const ShnHeader& header);

    /// Decodes one block.
    /// @param command   Diff0 to Diff3, Lpc or Zero
    /// @param shift     how many low bits were dropped from all samples of the block
    /// @throws Failure
    void decode(unsigned command, unsigned blockSize, unsigned shift, BitReader& bits);

    /// Sample `i` of the last block as it was before its low bits were dropped, within what its type can hold.
    int sample(unsigned i) const;

private:
    template <unsigned order> void readDifferences(BitReader& bits, unsigned energy, int around);
    void readPredicted(BitReader& bits, unsigned energy, int around);
    void readSamples(unsigned command, BitReader& bits, int around);
    int expected() const;
    void noteMean();
    int* block() { return samples_.data() + kept_; }

    const ShnHeader& header_;
    std::size_t kept_; ///< samples of earlier blocks, ahead of the block
    std::vector<int> samples_;
    std::vector<int> means_;
    unsigned blockSize_ = 0, shift_ = 0;
};

} // namespace zolt::companion
