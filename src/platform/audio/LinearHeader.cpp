#include "platform/audio/LinearHeader.h"

#include "platform/audio/WaveTags.h"

#include <QtEndian>

#include <cmath>

namespace zolt {

namespace {

/// Speakers of a WAV file of 3 to 8 channels, as most programs expect them for the number.
constexpr uint32_t speakerMasks[] = {0x7, 0x33, 0x37, 0x3f, 0x70f, 0x63f};

template <typename T> void appendLittle(QByteArray& bytes, T value)
{
    value = qToLittleEndian(value);
    bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
}

template <typename T> void appendBig(QByteArray& bytes, T value)
{
    value = qToBigEndian(value);
    bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
}

uint32_t speakerMask(uint32_t channels)
{
    return channels >= 3 && channels <= 8 ? speakerMasks[channels - 3] : 0;
}

/// The plain form names the data by a tag alone and says nothing of speakers, so it serves up to two channels.
QByteArray waveFormatChunk(const AudioFormat& format)
{
    const bool extensible = format.channelsPerFrame > 2;
    const auto rate = static_cast<uint32_t>(format.sampleRate);
    QByteArray bytes("fmt ");
    appendLittle<uint32_t>(bytes, extensible ? 40 : 16);
    appendLittle<uint16_t>(bytes, extensible ? waveTag::Extensible : waveTag::Integer);
    appendLittle<uint16_t>(bytes, static_cast<uint16_t>(format.channelsPerFrame));
    appendLittle<uint32_t>(bytes, rate);
    appendLittle<uint32_t>(bytes, rate * format.bytesPerFrame);
    appendLittle<uint16_t>(bytes, static_cast<uint16_t>(format.bytesPerFrame));
    appendLittle<uint16_t>(bytes, static_cast<uint16_t>(format.bitsPerChannel));
    if (!extensible) return bytes;
    appendLittle<uint16_t>(bytes, 22);
    appendLittle<uint16_t>(bytes, static_cast<uint16_t>(format.bitsPerChannel));
    appendLittle<uint32_t>(bytes, speakerMask(format.channelsPerFrame));
    appendLittle<uint16_t>(bytes, waveTag::Integer);
    return bytes.append(waveTag::extensibleTail);
}

QByteArray waveHeader(const AudioFormat& format, int64_t dataBytes)
{
    const auto formatChunk = waveFormatChunk(format);
    const int64_t rest = 4 + formatChunk.size() + 8 + dataBytes + (dataBytes & 1);
    QByteArray bytes("RIFF");
    appendLittle<uint32_t>(bytes, static_cast<uint32_t>(rest));
    bytes += "WAVE" + formatChunk + "data";
    appendLittle<uint32_t>(bytes, static_cast<uint32_t>(dataBytes));
    return bytes;
}

/// An 80-bit float: 15 bits of exponent, then a mantissa whose highest bit stands for the exponent's power.
void appendExtended(QByteArray& bytes, double value)
{
    int exponent = 0;
    const double fraction = std::frexp(value, &exponent);
    appendBig<uint16_t>(bytes, static_cast<uint16_t>(exponent + 16382));
    appendBig<uint64_t>(bytes, static_cast<uint64_t>(std::ldexp(fraction, 64)));
}

QByteArray aiffHeader(const AudioFormat& format, int64_t dataBytes)
{
    constexpr int64_t beforeSamples = 46; // the type, the whole common chunk, and 16 bytes of the sound chunk
    QByteArray bytes("FORM");
    appendBig<uint32_t>(bytes, static_cast<uint32_t>(beforeSamples + dataBytes + (dataBytes & 1)));
    bytes += "AIFFCOMM";
    appendBig<uint32_t>(bytes, 18);
    appendBig<uint16_t>(bytes, static_cast<uint16_t>(format.channelsPerFrame));
    appendBig<uint32_t>(bytes, static_cast<uint32_t>(dataBytes / format.bytesPerFrame));
    appendBig<uint16_t>(bytes, static_cast<uint16_t>(format.bitsPerChannel));
    appendExtended(bytes, format.sampleRate);
    bytes += "SSND";
    appendBig<uint32_t>(bytes, static_cast<uint32_t>(dataBytes + 8));
    appendBig<uint64_t>(bytes, 0);
    return bytes;
}

/// Sizes are 32 bits wide; in AIFF files they are signed by its definition, and many readers take them so.
constexpr LinearHeader wave = {waveHeader, (int64_t(1) << 32) - 1};
constexpr LinearHeader aiff = {aiffHeader, (int64_t(1) << 31) - 1};

} // namespace

const LinearHeader* linearHeaderFor(uint32_t fileType, const AudioFormat& format)
{
    const bool isAiff = fileType == fileTypeId::Aiff;
    const uint32_t flags = isAiff ? pcmFlag::AiffData : pcmFlag::WaveData;
    const uint32_t bits = format.bitsPerChannel;
    const bool fits = format == linearFormat(format.sampleRate, format.channelsPerFrame, bits, flags) && bits >= 8 &&
                      bits <= 32 && bits % 8 == 0 && format.channelsPerFrame >= 1 && format.channelsPerFrame <= 64;
    if (!fits || (!isAiff && fileType != fileTypeId::Wave)) return nullptr;
    return isAiff ? &aiff : &wave;
}

AudioFormat storedFormat(uint32_t fileType, const AudioFormat& format)
{
    auto stored = format;
    if (fileType == fileTypeId::Wave && format.bitsPerChannel == 8) stored.formatFlags = pcmFlag::Packed;
    return stored;
}

} // namespace zolt
