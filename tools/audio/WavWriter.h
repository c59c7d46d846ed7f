// Writes samples as a WAV file.
#pragma once

#include "audio/Output.h"

namespace zolt::companion {

class WavWriter
{
public:
    /// Writes the header.
    /// @param output     outlives this object
    /// @param header     everything ahead of the samples; its last four bytes are their length
    /// @param dataBytes  how many bytes of samples the header announces
    WavWriter(Output& output, const Bytes& header, std::uint64_t dataBytes);

    void write(const Bytes& samples);

    /// Ends the file. Where fewer samples came than announced, the header is corrected if that can still be done.
    /// @param trailer  follows the samples if all of them came
    void finish(const Bytes& trailer = {});

private:
    void correctHeader();

    Output& output_;
    Bytes header_;
    std::uint64_t announced_, written_ = 0;
};

} // namespace zolt::companion
