#include "Likeness.h"

#include <cmath>
#include <vector>

namespace zolt::test {

namespace {

using Sound = std::vector<double>;

constexpr qsizetype mostShift = 1500; ///< frames; more than any encoder's delay
constexpr qsizetype window = 4000;    ///< frames that decide on the shift

Sound channelOf(const QByteArray& bytes, int channel, int channels)
{
    const auto* const samples = reinterpret_cast<const int16_t*>(bytes.constData());
    Sound sound(size_t(bytes.size() / 2 / channels));
    for (size_t frame = 0; frame < sound.size(); ++frame)
        sound[frame] = samples[frame * size_t(channels) + size_t(channel)];
    return sound;
}

double differenceAt(const Sound& source, const Sound& decoded, qsizetype from, qsizetype shift)
{
    double sum = 0;
    for (qsizetype i = from; i < from + window; ++i) {
        const double apart = source[size_t(i)] - decoded[size_t(i + shift)];
        sum += apart * apart;
    }
    return sum;
}

qsizetype bestShift(const Sound& source, const Sound& decoded, qsizetype from)
{
    qsizetype best = 0;
    double least = differenceAt(source, decoded, from, best);
    for (qsizetype shift = -mostShift; shift <= mostShift; ++shift) {
        const double apart = differenceAt(source, decoded, from, shift);
        if (apart < least) best = shift;
        least = std::min(apart, least);
    }
    return best;
}

} // namespace

double likeness(const QByteArray& source, const QByteArray& decoded, int channels)
{
    const auto frames = std::min(source.size(), decoded.size()) / 2 / channels;
    if (frames < 2 * mostShift + window) return -1;
    double worst = 1000;
    for (int channel = 0; channel < channels; ++channel) {
        const Sound one = channelOf(source, channel, channels), other = channelOf(decoded, channel, channels);
        const qsizetype shift = bestShift(one, other, mostShift);
        double energy = 0, difference = 0;
        for (qsizetype i = mostShift; i < frames - mostShift; ++i) {
            energy += one[size_t(i)] * one[size_t(i)];
            difference += std::pow(one[size_t(i)] - other[size_t(i + shift)], 2);
        }
        worst = std::min(worst, 10 * std::log10(energy / difference));
    }
    return worst;
}

} // namespace zolt::test
