#include "shorten/ShnEncoder.h"

#include "shorten/Differences.h"

#include <algorithm>

namespace zolt::companion {

using namespace shn;

namespace {

// Other decoders want the whole header of a WAV file in one piece, and know pieces up to this length.
constexpr std::size_t pieceBytes = 16000;
constexpr std::size_t trailerAtOnce = 64 * 1024;

ShnHeader headerFor(const PcmFormat& format)
{
    return {.type = format.bits == 8 ? typeOfBytes : typeOfWords, .channels = format.channels};
}

int sampleAt(const std::uint8_t* bytes, unsigned sampleBytes)
{
    return sampleBytes == 1 ? bytes[0] : int(std::int16_t(littleEndian(bytes, 2)));
}

} // namespace

ShnEncoder::ShnEncoder(WavReader& wav, Output& output)
    : wav_(wav), output_(output), bits_(output), header_(headerFor(wav.format())), blockSize_(header_.blockSize),
      block_(std::size_t(header_.blockSize) * wav.format().frameBytes()),
      channels_(header_.channels, std::vector<int>(keptSamples + header_.blockSize, header_.sampleType().centre()))
{
    for (auto& channel : channels_)
        std::fill_n(channel.begin(), keptSamples, 0); // what decoders start from
}

void ShnEncoder::encode()
{
    writeShnHeader(output_, bits_, header_);
    writeBytes(wav_.header());
    const std::size_t frame = wav_.format().frameBytes();
    std::size_t got;
    do {
        got = wav_.read(block_.data(), block_.size());
        if (got >= frame) writeBlocks(unsigned(got / frame));
    } while (got == block_.size());
    writeBytes(Bytes(block_.begin() + std::ptrdiff_t(got / frame * frame), block_.begin() + std::ptrdiff_t(got)));
    writeTrailer();
    bits_.number(Quit, lowBits::command);
    bits_.finish();
    output_.finish();
}

void ShnEncoder::writeTrailer()
{
    for (Bytes bytes; !(bytes = wav_.trailer(trailerAtOnce)).empty();)
        writeBytes(bytes);
}

void ShnEncoder::writeBytes(const Bytes& bytes)
{
    for (std::size_t at = 0; at < bytes.size(); at += pieceBytes) {
        const std::size_t count = std::min(pieceBytes, bytes.size() - at);
        bits_.number(Verbatim, lowBits::command);
        bits_.number(std::uint32_t(count), lowBits::verbatimCount);
        for (std::size_t i = at; i < at + count; ++i)
            bits_.number(bytes[i], lowBits::verbatimByte);
    }
}

void ShnEncoder::writeBlocks(unsigned blockSize)
{
    if (blockSize != blockSize_) {
        bits_.number(BlockSize, lowBits::command);
        bits_.size(blockSize);
        blockSize_ = blockSize;
    }
    const unsigned sampleBytes = wav_.format().sampleBytes();
    for (std::size_t c = 0; c < channels_.size(); ++c) {
        const std::uint8_t* from = &block_[c * sampleBytes];
        for (unsigned i = 0; i < blockSize; ++i, from += wav_.format().frameBytes())
            channels_[c][keptSamples + i] = sampleAt(from, sampleBytes);
        writeBlock(channels_[c], blockSize);
    }
}

void ShnEncoder::writeBlock(std::vector<int>& samples, unsigned blockSize)
{
    const int* const block = samples.data() + keptSamples;
    if (std::all_of(block, block + blockSize, [](int sample) { return sample == 0; })) {
        bits_.number(Zero, lowBits::command);
    } else {
        const Differences best = bestDifferences(block, blockSize, header_.sampleType().centre());
        bits_.number(best.order, lowBits::command);
        bits_.number(best.energy, lowBits::energy);
        for (const std::int32_t residual : best.residuals)
            bits_.signedNumber(residual, best.energy);
    }
    std::copy_n(samples.begin() + blockSize, keptSamples, samples.begin());
}

} // namespace zolt::companion
