#include "platform/audio/ChunkWalker.h"
#include "platform/audio/LinearLayout.h"

#include <QFile>

#include <cmath>

namespace zolt {

namespace {

/// How the samples of an AIFC file are stored, by its compression type.
struct Storage
{
    uint32_t code;
    uint32_t flags; ///< without Packed and AlignedHigh
    uint32_t bits;  ///< 0: as the header states
};

constexpr uint32_t bigSigned = pcmFlag::BigEndian | pcmFlag::SignedInteger;
constexpr uint32_t bigFloat = pcmFlag::BigEndian | pcmFlag::Float;

constexpr Storage storages[] = {
    {fourCharCode("NONE"), bigSigned, 0},
    {fourCharCode("twos"), bigSigned, 0},
    {fourCharCode("sowt"), pcmFlag::SignedInteger, 0},
    {fourCharCode("raw "), 0, 8},
    {fourCharCode("in24"), bigSigned, 24},
    {fourCharCode("in32"), bigSigned, 32},
    {fourCharCode("42ni"), pcmFlag::SignedInteger, 24},
    {fourCharCode("23ni"), pcmFlag::SignedInteger, 32},
    {fourCharCode("fl32"), bigFloat, 32},
    {fourCharCode("FL32"), bigFloat, 32},
    {fourCharCode("fl64"), bigFloat, 64},
    {fourCharCode("FL64"), bigFloat, 64},
};

/// What the header has told so far.
struct AiffHeader
{
    bool compressed = false; ///< an AIFC file
    bool formatSeen = false;
    int64_t statedFrames = 0;
    int64_t dataBytes = 0; ///< none while no chunk of samples was met: a file of no frames needs none
};

/// The rate is stored as an 80-bit float: a sign and 15 bits of exponent, then a 64-bit mantissa with its point
/// behind the first bit.
double readExtended(const char* bytes)
{
    const int exponent = (qFromBigEndian<uint16_t>(bytes) & 0x7fff) - 16383 - 63;
    const double value = std::ldexp(static_cast<double>(qFromBigEndian<uint64_t>(bytes + 2)), exponent);
    return bytes[0] & '\x80' ? -value : value;
}

AudioStatus describe(uint32_t code, double rate, uint32_t channels, uint32_t statedBits, AudioFormat& format)
{
    for (const auto& storage : storages) {
        if (storage.code != code) continue;
        const uint32_t bits = storage.bits ? storage.bits : statedBits;
        const bool isFloat = storage.flags & pcmFlag::Float;
        if (!bits || (!isFloat && bits > 32)) return audioStatus::InvalidFile;
        format = linearFormatInBytes(rate, channels, bits, (bits + 7) / 8, storage.flags);
        return audioStatus::Ok;
    }
    return audioStatus::UnsupportedFormat;
}

AudioStatus readCommon(const QByteArray& body, AiffHeader& header, AudioFormat& format)
{
    header.formatSeen = true;
    if (body.size() < (header.compressed ? 22 : 18)) return audioStatus::InvalidFile;
    const char* bytes = body.constData();
    header.statedFrames = qFromBigEndian<uint32_t>(bytes + 2);
    const uint32_t code = header.compressed ? qFromBigEndian<uint32_t>(bytes + 18) : fourCharCode("NONE");
    return describe(code, readExtended(bytes + 8), qFromBigEndian<uint16_t>(bytes), qFromBigEndian<uint16_t>(bytes + 6),
                    format);
}

AudioStatus readSoundData(QFile& file, const Chunk& chunk, AiffHeader& header, LinearLayout& layout)
{
    const auto body = bytesAt(file, chunk.bodyOffset, 8);
    if (body.size() < 8) return audioStatus::InvalidFile;
    const int64_t gap = qFromBigEndian<uint32_t>(body.constData());
    layout.dataOffset = chunk.bodyOffset + 8 + gap;
    header.dataBytes = std::max<int64_t>(0, int64_t(chunk.size) - 8 - gap);
    return audioStatus::Ok;
}

} // namespace

AudioStatus readAiffLayout(QFile& file, LinearLayout& layout)
{
    AiffHeader header;
    header.compressed = bytesAt(file, 8, 4) == "AIFC";
    const auto status = walkChunks(file, true, [&](const Chunk& chunk) {
        if (chunk.id == fourCharCode("COMM") && !header.formatSeen)
            return readCommon(bytesAt(file, chunk.bodyOffset, std::min<uint32_t>(chunk.size, 22)), header,
                              layout.format);
        if (chunk.id == fourCharCode("SSND") && !layout.dataOffset) return readSoundData(file, chunk, header, layout);
        return audioStatus::Ok;
    });
    if (status) return status;
    if (!header.formatSeen) return audioStatus::InvalidFile;
    return limitToFile(layout, std::min(header.dataBytes, header.statedFrames * layout.format.bytesPerFrame),
                       file.size());
}

} // namespace zolt
