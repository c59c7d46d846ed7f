// What a Shorten stream says ahead of its blocks.
#pragma once

#include "shorten/BitReader.h"
#include "shorten/BitWriter.h"
#include "shorten/ShnFormat.h"

namespace zolt::companion {

struct ShnHeader
{
    unsigned version = 2;
    unsigned type = shn::typeOfWords;
    unsigned channels = 0;
    unsigned blockSize = 256; ///< samples of one channel
    unsigned lpcOrder = 0;    ///< the highest used
    unsigned means = 0;       ///< of how many blocks the mean is that a channel is expected around
    Bytes skipped;            ///< stands ahead of the samples

    const shn::SampleType& sampleType() const { return shn::sampleTypes[type]; }
};

/// Reads the magic and the version.
/// @throws Failure (Format)
unsigned readShnVersion(ByteSource& source);

/// @throws Failure (Format or Read)
ShnHeader readShnHeader(BitReader& bits, unsigned version, const std::string& name);

/// Writes the magic and the version, then the rest; nothing may have been written before.
void writeShnHeader(Output& output, BitWriter& bits, const ShnHeader& header);

} // namespace zolt::companion
