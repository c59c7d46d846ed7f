#include "shorten/ShnHeader.h"

#include "audio/Failure.h"

#include <cstring>
#include <iterator>

namespace zolt::companion {

namespace {

using namespace shn;

constexpr unsigned firstVersion = 1, lastVersion = 3;
constexpr std::size_t magicBytes = 4;
constexpr unsigned mostSkipped = 1 << 20;

void check(const ShnHeader& header, const std::string& name)
{
    const auto refuse = [&name](const char* why) { throw Failure(Fault::Format, name + ": " + why); };
    const bool known = header.type < std::size(sampleTypes) && sampleTypes[header.type].known;
    if (!known) refuse("holds samples of a kind that is not supported, or is damaged");
    if (header.channels < 1 || header.channels > mostChannels) refuse("does not have 1 to 8 channels, or is damaged");
    const bool sensible = header.blockSize >= 1 && header.blockSize <= mostBlockSize &&
                          header.lpcOrder <= mostLpcOrder && header.means <= mostMeans;
    if (!sensible) refuse("has a damaged header");
}

} // namespace

unsigned readShnVersion(ByteSource& source)
{
    const Bytes start = source.peek(magicBytes + 1);
    if (start.size() <= magicBytes || std::memcmp(start.data(), magic, magicBytes) != 0) {
        throw Failure(Fault::Format, source.name() + ": is not a Shorten file");
    }
    const unsigned version = start[magicBytes];
    if (version < firstVersion || version > lastVersion) {
        throw Failure(Fault::Format, source.name() + ": is a Shorten file of a version that is not supported");
    }
    source.skip(start.size());
    return version;
}

ShnHeader readShnHeader(BitReader& bits, unsigned version, const std::string& name)
{
    ShnHeader header{.version = version};
    header.type = bits.size();
    header.channels = bits.size();
    header.blockSize = bits.size();
    header.lpcOrder = bits.size();
    header.means = bits.size();
    const std::uint32_t skipped = bits.size();
    check(header, name);
    if (skipped > mostSkipped) throw Failure(Fault::Format, name + ": has a damaged header");
    for (std::uint32_t i = 0; i < skipped; ++i)
        header.skipped.push_back(std::uint8_t(bits.number(lowBits::skippedByte)));
    return header;
}

void writeShnHeader(Output& output, BitWriter& bits, const ShnHeader& header)
{
    output.write({'a', 'j', 'k', 'g', std::uint8_t(header.version)});
    bits.size(header.type);
    bits.size(header.channels);
    bits.size(header.blockSize);
    bits.size(header.lpcOrder);
    bits.size(header.means);
    bits.size(std::uint32_t(header.skipped.size()));
    for (const std::uint8_t byte : header.skipped)
        bits.number(byte, lowBits::skippedByte);
}

} // namespace zolt::companion
