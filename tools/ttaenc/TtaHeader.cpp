#include "ttaenc/TtaHeader.h"

#include "audio/Failure.h"
#include "audio/Id3.h"
#include "codec/Checksums.h"

#include <algorithm>
#include <cstring>

namespace zolt::companion {

namespace {

constexpr unsigned pcm = 1, encrypted = 2;
constexpr std::size_t sumBytes = 4;
constexpr unsigned mostRate = 1 << 20; // Hz; keeps the length of a frame small

bool startsWith(const Bytes& bytes, const char* id)
{
    return bytes.size() >= std::strlen(id) && std::memcmp(bytes.data(), id, std::strlen(id)) == 0;
}

bool hasSum(const Bytes& bytes)
{
    const std::size_t covered = bytes.size() - sumBytes;
    return crc32(bytes.data(), covered) == littleEndian(&bytes[covered], sumBytes);
}

void appendSum(Bytes& bytes)
{
    appendLittleEndian(bytes, crc32(bytes.data(), bytes.size()), sumBytes);
}

void check(const TtaHeader& header, unsigned kind, const std::string& name)
{
    const auto refuse = [&name](const char* why) { throw Failure(Fault::Format, name + ": " + why); };
    const PcmFormat& format = header.format;
    if (kind == encrypted) refuse("is a TTA file that is locked by a password");
    if (kind != pcm) refuse("is a TTA file of a kind that is not known");
    const bool knownBits = format.bits == 8 || format.bits == 16 || format.bits == 24;
    if (!knownBits) refuse("is a TTA file whose samples are not of 8, 16 or 24 bits");
    if (format.channels < 1 || format.channels > 8) refuse("is a TTA file that does not have 1 to 8 channels");
    if (format.rate < 1 || format.rate > mostRate) refuse("is a TTA file with an impossible sample rate");
}

} // namespace

std::uint32_t TtaHeader::samplesOf(std::uint32_t frame) const
{
    const std::uint64_t before = std::uint64_t(frame) * frameSamples();
    return std::uint32_t(std::min<std::uint64_t>(frameSamples(), samples - before));
}

bool looksLikeTta(ByteSource& source)
{
    const Bytes start = source.peek(4);
    return startsWith(start, "TTA1") || startsWith(start, "ID3");
}

Bytes ttaHeaderBytesOf(const TtaHeader& header)
{
    Bytes bytes{'T', 'T', 'A', '1'};
    appendLittleEndian(bytes, pcm, 2);
    appendLittleEndian(bytes, header.format.channels, 2);
    appendLittleEndian(bytes, header.format.bits, 2);
    appendLittleEndian(bytes, header.format.rate, 4);
    appendLittleEndian(bytes, header.samples, 4);
    appendSum(bytes);
    return bytes;
}

TtaHeader readTtaHeader(ByteSource& source)
{
    skipId3(source);
    if (!startsWith(source.peek(4), "TTA1")) throw Failure(Fault::Format, source.name() + ": is not a TTA file");
    const Bytes bytes = source.take(ttaHeaderBytes);
    if (!hasSum(bytes)) throw Failure(Fault::Checksum, source.name() + ": its header is damaged");
    const auto number = [&bytes](std::size_t at, unsigned size) { return unsigned(littleEndian(&bytes[at], size)); };
    TtaHeader header;
    header.format = {.channels = number(6, 2), .rate = number(10, 4), .bits = number(8, 2)};
    header.samples = number(14, 4);
    check(header, number(4, 2), source.name());
    return header;
}

std::vector<std::uint32_t> readTtaTable(ByteSource& source, const TtaHeader& header)
{
    const Bytes bytes = source.take(std::size_t(header.frames()) * 4 + sumBytes);
    if (!hasSum(bytes)) throw Failure(Fault::Checksum, source.name() + ": its table of frames is damaged");
    std::vector<std::uint32_t> lengths;
    for (std::uint32_t i = 0; i < header.frames(); ++i)
        lengths.push_back(std::uint32_t(littleEndian(&bytes[i * 4], 4)));
    return lengths;
}

Bytes ttaTableBytes(const std::vector<std::uint32_t>& lengths)
{
    Bytes bytes;
    for (const std::uint32_t length : lengths)
        appendLittleEndian(bytes, length, 4);
    appendSum(bytes);
    return bytes;
}

} // namespace zolt::companion
