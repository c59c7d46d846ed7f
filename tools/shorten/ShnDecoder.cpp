#include "shorten/ShnDecoder.h"

namespace zolt::companion {

using namespace shn;

ShnDecoder::ShnDecoder(ByteSource& source)
    : version_(readShnVersion(source)), bits_(source), header_(readShnHeader(bits_, version_, source.name())),
      channels_(header_.channels, ShnChannel(header_)), blockSize_(header_.blockSize)
{
}

void ShnDecoder::decode(Output& output)
{
    output.write(header_.skipped);
    while (obey(bits_.number(lowBits::command), output))
        continue;
}

/// False at the end.
bool ShnDecoder::obey(unsigned command, Output& output)
{
    switch (command) {
    case Quit:
        end();
        return false;
    case BlockSize:
        setBlockSize();
        return true;
    case BitShift:
        setShift();
        return true;
    case Verbatim:
        copyBytes(output);
        return true;
    default:
        readBlock(command, output);
        return true;
    }
}

void ShnDecoder::end() const
{
    if (next_ != 0) bits_.damaged();
}

void ShnDecoder::setBlockSize()
{
    blockSize_ = bits_.size();
    if (blockSize_ < 1 || blockSize_ > mostBlockSize || next_ != 0) bits_.damaged();
}

void ShnDecoder::setShift()
{
    shift_ = bits_.number(lowBits::bitShift);
    if (shift_ > mostShift) bits_.damaged();
}

void ShnDecoder::copyBytes(Output& output)
{
    Bytes bytes;
    for (std::uint32_t count = bits_.number(lowBits::verbatimCount); count > 0; --count)
        bytes.push_back(std::uint8_t(bits_.number(lowBits::verbatimByte)));
    output.write(bytes);
}

void ShnDecoder::readBlock(unsigned command, Output& output)
{
    if (command > Zero) bits_.damaged();
    channels_[next_].decode(command, blockSize_, shift_, bits_);
    next_ = (next_ + 1) % unsigned(channels_.size());
    if (next_ == 0) writeBlocks(output);
}

void ShnDecoder::writeBlocks(Output& output)
{
    const SampleType& type = header_.sampleType();
    block_.resize(std::size_t(blockSize_) * channels_.size() * type.bytes);
    std::uint8_t* to = block_.data();
    for (unsigned i = 0; i < blockSize_; ++i) {
        for (const ShnChannel& channel : channels_) {
            const auto value = std::uint32_t(channel.sample(i));
            to[type.bigEndian] = std::uint8_t(value);
            if (type.bytes == 2) to[!type.bigEndian] = std::uint8_t(value >> 8);
            to += type.bytes;
        }
    }
    output.write(block_);
}

} // namespace zolt::companion
