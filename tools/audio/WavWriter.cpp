#include "audio/WavWriter.h"

#include <algorithm>

namespace zolt::companion {

namespace {

constexpr std::size_t riffSizeAt = 4, behindRiffSize = 8, sizeBytes = 4;

void replaceSize(Bytes& in, std::size_t at, std::uint64_t size)
{
    Bytes bytes;
    appendLittleEndian(bytes, size, sizeBytes);
    std::copy(bytes.begin(), bytes.end(), in.begin() + std::ptrdiff_t(at));
}

} // namespace

WavWriter::WavWriter(Output& output, const Bytes& header, std::uint64_t dataBytes)
    : output_(output), header_(header), announced_(dataBytes)
{
    output_.write(header_);
}

void WavWriter::write(const Bytes& samples)
{
    output_.write(samples);
    written_ += samples.size();
}

void WavWriter::correctHeader()
{
    replaceSize(header_, riffSizeAt, header_.size() - behindRiffSize + written_ + written_ % 2);
    replaceSize(header_, header_.size() - sizeBytes, written_);
    output_.rewrite(0, header_);
}

void WavWriter::finish(const Bytes& trailer)
{
    const bool whole = written_ == announced_;
    if (whole && !trailer.empty())
        output_.write(trailer);
    else if (written_ % 2 != 0)
        output_.write({0}); // chunks start at even places
    if (!whole && output_.canRewrite()) correctHeader();
    output_.finish();
}

} // namespace zolt::companion
