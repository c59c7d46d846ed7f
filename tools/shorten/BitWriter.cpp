#include "shorten/BitWriter.h"

#include "shorten/ShnFormat.h"

#include <bit>

namespace zolt::companion {

namespace {

constexpr std::size_t handedOver = 64 * 1024;
constexpr unsigned wordBytes = 4;

} // namespace

void BitWriter::bits(std::uint32_t value, unsigned count)
{
    cache_ = cache_ << count | value;
    for (cached_ += count; cached_ >= 8; cached_ -= 8) {
        bytes_.push_back(std::uint8_t(cache_ >> (cached_ - 8)));
        ++written_;
    }
    if (bytes_.size() < handedOver) return;
    output_.write(bytes_);
    bytes_.clear();
}

void BitWriter::number(std::uint32_t value, unsigned lowBits)
{
    std::uint32_t zeros = lowBits < 32 ? value >> lowBits : 0;
    for (; zeros >= 24; zeros -= 24)
        bits(0, 24);
    bits(1, zeros + 1);
    bits(value & ((1u << lowBits) - 1), lowBits);
}

void BitWriter::size(std::uint32_t value)
{
    const unsigned low = unsigned(std::bit_width(value));
    number(low, shn::lowBits::size);
    number(value, low);
}

void BitWriter::finish()
{
    while (cached_ != 0 || written_ % wordBytes != 0)
        bits(0, 8 - cached_ % 8);
    output_.write(bytes_);
    bytes_.clear();
}

} // namespace zolt::companion
