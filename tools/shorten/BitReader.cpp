#include "shorten/BitReader.h"

#include "audio/Failure.h"
#include "shorten/ShnFormat.h"

#include <bit>

namespace zolt::companion {

namespace {

constexpr std::size_t bufferBytes = 64 * 1024;
constexpr unsigned mostLowBits = 31;

} // namespace

BitReader::BitReader(ByteSource& source) : source_(source), buffer_(bufferBytes) {}

void BitReader::damaged() const
{
    throw Failure(Fault::Format, source_.name() + ": is damaged: it holds a number that makes no sense");
}

void BitReader::cut() const
{
    throw Failure(Fault::Read, source_.name() + ": ends before its samples do: the file is cut");
}

bool BitReader::readMore()
{
    next_ = 0;
    end_ = source_.read(buffer_.data(), buffer_.size());
    return end_ > 0;
}

void BitReader::refill()
{
    while (cached_ <= 56 && (next_ < end_ || readMore())) {
        cache_ |= std::uint64_t(buffer_[next_++]) << (56 - cached_);
        cached_ += 8;
    }
}

std::uint32_t BitReader::bits(unsigned count)
{
    if (count == 0) return 0;
    if (cached_ < count) refill();
    if (cached_ < count) cut();
    const auto value = std::uint32_t(cache_ >> (64 - count));
    cache_ <<= count;
    cached_ -= count;
    return value;
}

std::uint64_t BitReader::zeros()
{
    std::uint64_t zeros = 0;
    while (cache_ == 0) { // what lies below the cached bits is zero too
        zeros += cached_;
        cached_ = 0;
        refill();
        if (cached_ == 0) cut();
    }
    const unsigned run = unsigned(std::countl_zero(cache_));
    cache_ = cache_ << run << 1;
    cached_ -= run + 1;
    return zeros + run;
}

std::uint32_t BitReader::size()
{
    const std::uint32_t low = number(shn::lowBits::size);
    if (low > mostLowBits) damaged();
    return number(low);
}

} // namespace zolt::companion
