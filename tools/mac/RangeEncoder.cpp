#include "mac/RangeEncoder.h"

namespace zolt::companion {

namespace {

constexpr std::uint32_t top = 1u << 31, bottom = top >> 8;
constexpr unsigned shift = 23, flushedBytes = 5;

} // namespace

void RangeEncoder::release(unsigned carry)
{
    to_.push_back(std::uint8_t(held_ + carry));
    to_.insert(to_.end(), following_, carry ? 0 : 0xff);
    following_ = 0;
    held_ = std::uint8_t(low_ >> shift);
}

void RangeEncoder::normalize()
{
    while (range_ <= bottom) {
        if (low_ < 0xffu << shift)
            release(0);
        else if (low_ & top)
            release(1);
        else
            ++following_;
        range_ <<= 8;
        low_ = low_ << 8 & (top - 1);
    }
}

void RangeEncoder::put(std::uint32_t step, std::uint32_t first, std::uint32_t count)
{
    low_ += step * first;
    range_ = step * count;
}

void RangeEncoder::encode(std::uint32_t first, std::uint32_t count, std::uint32_t total)
{
    normalize();
    put(range_ / total, first, count);
}

void RangeEncoder::encodeShift(std::uint32_t first, std::uint32_t count, unsigned bits)
{
    normalize();
    put(range_ >> bits, first, count);
}

void RangeEncoder::finish()
{
    for (unsigned i = 0; i < flushedBytes; ++i) {
        range_ = bottom;
        normalize();
    }
}

} // namespace zolt::companion
