#include "shntool/reading/PlainHeader.h"

#include <cstdint>
#include <cstring>

namespace zolt::reading {

namespace {

constexpr unsigned pcm = 1, extensible = 0xfffe;
constexpr std::uint64_t unknownLength = 0xffffffff;
constexpr unsigned newestWavpack = 0x410;
constexpr unsigned char knownWavpack[] = {0x07, 0x04};
constexpr std::size_t firstChunk = 12, chunkHeader = 8, plainFormat = 16, channelsAt = 2, subFormatAt = 24,
                      extensibleFormat = 40;

/// What follows the tag in the identifier of every sub-format that a plain tag could say as well.
constexpr unsigned char restOfSubFormat[] = {0x00, 0x00, 0x00, 0x00, 0x10, 0x00, 0x80,
                                             0x00, 0x00, 0xaa, 0x00, 0x38, 0x9b, 0x71};

bool reads(const unsigned char* at, const char* word)
{
    return std::memcmp(at, word, 4) == 0;
}

unsigned word16(const unsigned char* at)
{
    return at[0] | unsigned(at[1]) << 8;
}

std::uint64_t word32(const unsigned char* at)
{
    return word16(at) | std::uint64_t(word16(at + 2)) << 16;
}

bool saysPlainPcm(const unsigned char* format)
{
    return word16(format) == extensible && word16(format + subFormatAt) == pcm &&
           std::memcmp(format + subFormatAt + 2, restOfSubFormat, sizeof restOfSubFormat) == 0;
}

/// Where the content of a chunk begins; 0 if its header does not lie within the head.
std::size_t chunk(const unsigned char* head, std::size_t size, const char* name)
{
    for (std::uint64_t at = firstChunk; at + chunkHeader <= size;) {
        if (reads(head + at, name)) return at + chunkHeader;
        const std::uint64_t length = word32(head + at + 4);
        at += chunkHeader + length + length % 2;
    }
    return 0;
}

bool isWav(const unsigned char* head, std::size_t size)
{
    return size >= firstChunk && reads(head, "RIFF") && reads(head + 8, "WAVE");
}

std::optional<Change> plainWav(const unsigned char* head, std::size_t size)
{
    const std::size_t format = chunk(head, size, "fmt ");
    if (format == 0 || format + extensibleFormat > size || word32(head + format - 4) < extensibleFormat ||
        !saysPlainPcm(head + format))
        return std::nullopt;
    return Change{format, {pcm, 0}, word16(head + format + channelsAt)};
}

void setWord32(unsigned char* at, std::uint64_t value)
{
    for (int i = 0; i < 4; ++i, value >>= 8)
        at[i] = static_cast<unsigned char>(value);
}

} // namespace

std::optional<Change> plainHeader(const unsigned char* head, std::size_t size)
{
    if (isWav(head, size)) return plainWav(head, size);
    if (size >= 10 && reads(head, "wvpk") && word16(head + 8) == newestWavpack)
        return Change{8, {knownWavpack[0], knownWavpack[1]}};
    return std::nullopt;
}

std::size_t shortenHeader(unsigned char* head, std::size_t size)
{
    constexpr std::size_t shortData = firstChunk + chunkHeader + plainFormat + chunkHeader;
    if (!isWav(head, size)) return size;
    const auto change = plainWav(head, size);
    const std::size_t data = chunk(head, size, "data");
    if (!change || data < change->offset + extensibleFormat) return size;
    const std::uint64_t whole = word32(head + 4);
    if (whole != 0 && whole != unknownLength) setWord32(head + 4, whole - (data - shortData));
    std::memmove(head + firstChunk, head + change->offset - chunkHeader, chunkHeader + plainFormat);
    setWord32(head + firstChunk + 4, plainFormat);
    std::memcpy(head + firstChunk + chunkHeader, change->shown, sizeof change->shown);
    std::memmove(head + shortData - chunkHeader, head + data - chunkHeader, size - (data - chunkHeader));
    return size - (data - shortData);
}

} // namespace zolt::reading
