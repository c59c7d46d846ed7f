// What audio data is, told in numbers: the description that the audio file service, the inspection of files and the
// conversion share. Plain values; any thread.
#pragma once

#include <QString>

#include <cstdint>

namespace zolt {

/// A four-character code as a number, its first character in the highest byte.
consteval uint32_t fourCharCode(const char (&text)[5])
{
    uint32_t code = 0;
    for (int i = 0; i < 4; ++i)
        code = code << 8 | static_cast<uint8_t>(text[i]);
    return code;
}

/// The code's four characters; a code that is not made of printable ASCII is given as a decimal number.
QString fourCharText(uint32_t code);

/// What the samples are.
namespace formatId {
constexpr uint32_t LinearPcm = fourCharCode("lpcm");
constexpr uint32_t AppleLossless = fourCharCode("alac");
constexpr uint32_t Aac = fourCharCode("aac ");
constexpr uint32_t Mp3 = fourCharCode(".mp3");
constexpr uint32_t MuLaw = fourCharCode("ulaw");
constexpr uint32_t ALaw = fourCharCode("alaw");
} // namespace formatId

/// What the file around them is.
namespace fileTypeId {
constexpr uint32_t Aiff = fourCharCode("AIFF");
constexpr uint32_t Wave = fourCharCode("WAVE");
constexpr uint32_t M4a = fourCharCode("m4af");
} // namespace fileTypeId

/// Format flags of linear PCM, as bits.
namespace pcmFlag {
constexpr uint32_t Float = 1;
constexpr uint32_t BigEndian = 2;
constexpr uint32_t SignedInteger = 4;
constexpr uint32_t Packed = 8;
/// The bits stand at the high end of a sample that is wider than they are.
constexpr uint32_t AlignedHigh = 16;
/// What a WAV file holds.
constexpr uint32_t WaveData = SignedInteger | Packed;
/// What an AIFF file holds.
constexpr uint32_t AiffData = BigEndian | SignedInteger | Packed;
} // namespace pcmFlag

/// Describes a stream of audio. The layout is fixed: 40 bytes, the reserved word included.
struct AudioFormat
{
    double sampleRate = 0;        ///< frames a second
    uint32_t formatId = 0;        ///< one of formatId
    uint32_t formatFlags = 0;     ///< bits of pcmFlag; for Apple Lossless the source depth as appleLosslessFlags says
    uint32_t bytesPerPacket = 0;  ///< 0 if it varies
    uint32_t framesPerPacket = 0; ///< 0 if it varies
    uint32_t bytesPerFrame = 0;   ///< 0 for compressed data
    uint32_t channelsPerFrame = 0;
    uint32_t bitsPerChannel = 0; ///< 0 for compressed data, but for Apple Lossless the depth of its source
    uint32_t reserved = 0;

    bool operator==(const AudioFormat&) const = default;
    bool isLinear() const { return formatId == zolt::formatId::LinearPcm; }
};
static_assert(sizeof(AudioFormat) == 40);

/// The Apple Lossless format flags for a source depth: 1, 2, 3 and 4 for 16, 20, 24 and 32 bits, else 0.
uint32_t appleLosslessFlags(uint32_t bitsPerChannel);

/// The source depth that Apple Lossless format flags stand for; 0 for flags other than 1 to 4.
uint32_t appleLosslessDepth(uint32_t formatFlags);

/// Describes linear PCM without gaps between the samples.
/// @param flags bits of pcmFlag
AudioFormat linearFormat(double sampleRate, uint32_t channels, uint32_t bitsPerChannel, uint32_t flags);

/// Describes linear PCM whose samples take `bytesPerSample` bytes each; depths that leave bits over stand at the
/// high end and are flagged so.
/// @param flags bits of pcmFlag without Packed and AlignedHigh
AudioFormat linearFormatInBytes(double sampleRate, uint32_t channels, uint32_t bitsPerChannel, uint32_t bytesPerSample,
                                uint32_t flags);

} // namespace zolt
