#include "audio/Id3.h"

#include <cstring>

namespace zolt::companion {

namespace {

constexpr std::size_t headerBytes = 10, footerBytes = 10;
constexpr std::uint8_t hasFooter = 0x10;

} // namespace

void skipId3(ByteSource& source)
{
    const Bytes start = source.peek(headerBytes);
    if (start.size() < headerBytes || std::memcmp(start.data(), "ID3", 3) != 0) return;
    std::uint32_t length = 0;
    for (std::size_t i = 6; i < headerBytes; ++i) // four groups of seven bits
        length = length << 7 | (start[i] & 127);
    source.skip(headerBytes + length + (start[5] & hasFooter ? footerBytes : 0));
}

} // namespace zolt::companion
