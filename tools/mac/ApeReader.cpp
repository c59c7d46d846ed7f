#include "mac/ApeReader.h"

#include "audio/Failure.h"
#include "codec/Checksums.h"
#include "codec/Samples.h"

namespace zolt::companion {

namespace {

// A packet: the count of samples, how many bytes of the frame belong to the one before, then the frame itself in
// words of four bytes whose order is reversed.
constexpr std::size_t countBytes = 4, frameAt = 8, sumBytes = 4, wordBytes = 4;

std::uint32_t countOf(const AVPacket& packet)
{
    return packet.size < int(frameAt) ? 0 : std::uint32_t(littleEndian(packet.data, countBytes));
}

/// The highest bit of the stored sum is no part of it: it tells that more stands behind.
bool hasSum(const AVPacket& packet, const Bytes& samples)
{
    const std::size_t before = std::size_t(littleEndian(packet.data + countBytes, 4));
    if (before >= wordBytes || std::size_t(packet.size) < frameAt + before + wordBytes + sumBytes) return false;
    std::uint32_t stored = 0;
    for (std::size_t i = before; i < before + sumBytes; ++i)
        stored = stored << 8 | packet.data[frameAt + (i ^ (wordBytes - 1))];
    return crc32(samples.data(), samples.size()) >> 1 == (stored & 0x7fffffff);
}

} // namespace

ApeReader::ApeReader(const std::string& path, bool hasFrameSums)
    : name_(path), hasFrameSums_(hasFrameSums), demuxer_(path), format_(demuxer_.format()),
      decoder_(demuxer_.parameters(), format_, path)
{
}

bool ApeReader::read(Bytes& samples)
{
    samples.clear();
    const AVPacket* const packet = demuxer_.next();
    const std::uint64_t count = packet ? countOf(*packet) : 0;
    if (count == 0) throw Failure(Fault::Read, name_ + ": ends before its samples do: the file is cut");
    if (count > this->samples() - read_) throw Failure(Fault::Format, name_ + ": has a damaged header");
    read_ += count;
    const std::size_t expected = std::size_t(count) * format_.frameBytes();
    const bool decoded = decoder_.decode(*packet, samples) && samples.size() == expected;
    if (decoded && (!hasFrameSums_ || hasSum(*packet, samples))) return true;
    samples.resize(expected, silence(format_, 1)[0]);
    return false;
}

} // namespace zolt::companion
