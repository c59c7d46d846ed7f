#include "mac/ApeFrame.h"

#include "codec/Checksums.h"
#include "mac/ApeFilter.h"
#include "mac/ApePredictor.h"
#include "mac/ApeValues.h"

namespace zolt::companion {

namespace {

struct FilterShape
{
    unsigned order, fraction;
};

/// What a level adds to the predictor, in an encoder's order.
const std::vector<FilterShape>& filtersOf(unsigned level)
{
    static const std::vector<FilterShape> levels[] = {
        {}, {{16, 11}}, {{64, 11}}, {{256, 13}, {32, 10}}, {{1280, 15}, {256, 13}, {16, 11}}};
    return levels[level / 1000 - 1];
}

class Channel
{
public:
    Channel(unsigned level, ApePredictor::Sums sums) : predictor_(sums)
    {
        for (const FilterShape& shape : filtersOf(level))
            filters_.emplace_back(shape.order, shape.fraction);
    }

    void encode(std::int32_t sample, std::int32_t other, RangeEncoder& to)
    {
        std::int32_t left = predictor_.residual(sample, other);
        for (ApeFilter& filter : filters_)
            left = filter.residual(left);
        values_.encode(left, to);
    }
    std::int32_t smoothed() const { return predictor_.smoothed(); }

private:
    ApePredictor predictor_;
    std::vector<ApeFilter> filters_;
    ApeValues values_;
};

std::int32_t sampleAt(const std::uint8_t* from, unsigned bytes)
{
    if (bytes == 1) return *from - 128;
    const unsigned unused = 32 - 8 * bytes;
    return std::int32_t(std::uint32_t(littleEndian(from, bytes)) << unused) >> unused;
}

void encodeMono(const Bytes& samples, unsigned bytes, unsigned level, RangeEncoder& to)
{
    Channel channel(level, ApePredictor::Sums::Wrapping);
    for (std::size_t at = 0; at < samples.size(); at += bytes)
        channel.encode(sampleAt(&samples[at], bytes), 0, to);
}

/// The difference comes first, then the middle, each predicted from the other too.
void encodeStereo(const Bytes& samples, unsigned bytes, unsigned level, RangeEncoder& to)
{
    // Only of this one kind FFmpeg takes the sums as they are.
    const auto sums = level == 5000 && bytes == 3 ? ApePredictor::Sums::Wide : ApePredictor::Sums::Wrapping;
    Channel difference(level, sums), middle(level, sums);
    for (std::size_t at = 0; at < samples.size(); at += 2 * bytes) {
        const std::int32_t left = sampleAt(&samples[at], bytes), right = sampleAt(&samples[at + bytes], bytes);
        difference.encode(right - left, middle.smoothed(), to);
        middle.encode(left + (right - left) / 2, difference.smoothed(), to);
    }
}

} // namespace

Bytes encodeApeFrame(const Bytes& samples, const PcmFormat& format, unsigned level)
{
    Bytes frame;
    const std::uint32_t sum = crc32(samples.data(), samples.size()) >> 1; // the bit that goes tells of more behind it
    for (int shift = 24; shift >= 0; shift -= 8)
        frame.push_back(std::uint8_t(sum >> shift));
    RangeEncoder range(frame);
    (format.channels == 1 ? encodeMono : encodeStereo)(samples, format.sampleBytes(), level, range);
    range.finish();
    return frame;
}

} // namespace zolt::companion
