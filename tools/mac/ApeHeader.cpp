#include "mac/ApeHeader.h"

#include "audio/Failure.h"
#include "audio/Id3.h"

#include <algorithm>
#include <cstring>

namespace zolt::companion {

namespace {

constexpr unsigned firstWithSum = 3980;
constexpr std::size_t startBytes = 6, descriptorBytes = 52, sumAt = 36; // of the descriptor
constexpr std::uint64_t partBytes = 1 << 20;
constexpr std::uint32_t mostKept = 64 << 20; // of what is held in memory; more is damage

void addFrames(Md5& sum, ByteSource& source, std::uint64_t bytes)
{
    for (; bytes > partBytes; bytes -= partBytes)
        sum.add(source.take(partBytes));
    sum.add(source.take(std::size_t(bytes)));
}

bool isApe(ByteSource& source)
{
    const Bytes start = source.peek(startBytes);
    return start.size() == startBytes && std::memcmp(start.data(), "MAC ", 4) == 0;
}

void readParts(ApeHeader& header, ByteSource& source)
{
    const Bytes descriptor = source.take(descriptorBytes);
    const auto number = [&descriptor](std::size_t at) { return std::uint32_t(littleEndian(&descriptor[at], 4)); };
    const std::uint32_t length = number(8), information = number(12), table = number(16), wavHeader = number(20);
    header.frameBytes = number(24) | std::uint64_t(number(28)) << 32;
    header.trailerBytes = number(32);
    header.sum.emplace();
    std::copy_n(&descriptor[sumAt], header.sum->size(), header.sum->begin());
    if (std::max({information, table, wavHeader, number(32)}) > mostKept) {
        throw Failure(Fault::Format, source.name() + ": has a damaged header");
    }
    source.skip(length > descriptorBytes ? length - descriptorBytes : 0);
    header.information = source.take(information);
    header.table = source.take(table);
    header.wavHeader = source.take(wavHeader);
}

} // namespace

ApeHeader readApeHeader(ByteSource& source)
{
    skipId3(source);
    if (!isApe(source)) throw Failure(Fault::Format, source.name() + ": is not a Monkey's Audio file");
    ApeHeader header{.version = unsigned(littleEndian(&source.peek(startBytes)[4], 2))};
    if (header.version >= firstWithSum) readParts(header, source);
    return header;
}

/// The sum covers the header and the table behind everything else.
ApeContent readApeContent(ByteSource& source, const ApeHeader& header)
{
    if (!header.sum) return {};
    ApeContent content;
    Md5 sum;
    sum.add(header.wavHeader);
    addFrames(sum, source, header.frameBytes);
    content.wavTrailer = source.take(std::size_t(header.trailerBytes));
    sum.add(content.wavTrailer);
    sum.add(header.information);
    sum.add(header.table);
    content.matchesSum = sum.sum() == *header.sum;
    return content;
}

} // namespace zolt::companion
