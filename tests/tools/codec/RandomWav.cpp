#include "codec/RandomWav.h"

#include <QtEndian>

#include <cmath>

namespace zolt::test {

namespace {

void append(QByteArray& to, quint32 value, int bytes)
{
    for (; bytes > 0; --bytes, value >>= 8)
        to.append(char(value));
}

int anyOf(Random& random, int lowest, int highest)
{
    return std::uniform_int_distribution<int>(lowest, highest)(random);
}

/// One sample, between -1 and 1.
double sampleOf(const WavShape& shape, unsigned at, unsigned channel, Random& random)
{
    const auto noise = [&random] { return anyOf(random, -1000000, 1000000) / 1e6; };
    const double t = double(at) / shape.rate;
    switch (shape.sound) {
    case Sound::Silence:
        return 0;
    case Sound::Noise:
        return noise();
    case Sound::FullSquare:
        return at / 50 % 2 == channel % 2 ? 1 : -1;
    case Sound::EqualChannels:
        return 0.7 * std::sin(2000 * t) + 0.1 * std::sin(17000 * t);
    case Sound::Steps:
        return (at / 1000 * 7919 + channel * 31) % 201 / 100.0 - 1;
    case Sound::QuietThenLoud:
        return noise() * (at < shape.samples / 2 ? 0.0005 : 0.9);
    default:
        return 0.5 * std::sin((1500 + 300 * channel) * t) + 0.3 * std::sin(9000 * t) + 0.01 * noise();
    }
}

} // namespace

QByteArray makeSamples(const WavShape& shape, Random& random)
{
    QByteArray samples;
    const double highest = (1u << (shape.bits - 1)) - 1;
    for (unsigned i = 0; i < shape.samples; ++i) {
        double first = 0;
        for (unsigned c = 0; c < shape.channels; ++c) {
            double value = sampleOf(shape, i, c, random);
            if (c == 0) first = value;
            if (shape.sound == Sound::EqualChannels) value = first;
            append(samples, quint32(qint32(std::lrint(value * highest)) + (shape.bits == 8 ? 128 : 0)),
                   int(shape.bits / 8));
        }
    }
    return samples;
}

QByteArray wavHeaderOf(const WavShape& shape)
{
    const unsigned frame = shape.channels * shape.bits / 8, bytes = shape.samples * frame;
    QByteArray header("RIFF");
    append(header, 36 + bytes + bytes % 2, 4);
    header += "WAVEfmt ";
    append(header, 16, 4);
    append(header, 1, 2);
    append(header, shape.channels, 2);
    append(header, shape.rate, 4);
    append(header, shape.rate * frame, 4);
    append(header, frame, 2);
    append(header, shape.bits, 2);
    header += "data";
    append(header, bytes, 4);
    return header;
}

QByteArray makeWav(const WavShape& shape, Random& random)
{
    QByteArray wav = wavHeaderOf(shape) + makeSamples(shape, random);
    if (wav.size() % 2 != 0) wav.append('\0');
    return wav;
}

WavShape randomShape(Random& random, unsigned mostSamples, std::initializer_list<unsigned> depths,
                     unsigned mostChannels)
{
    constexpr unsigned rates[] = {8000, 11025, 44100, 48000, 96000, 192000};
    WavShape shape;
    shape.channels = unsigned(anyOf(random, 1, int(mostChannels)));
    shape.rate = rates[anyOf(random, 0, 5)];
    shape.bits = *(depths.begin() + anyOf(random, 0, int(depths.size()) - 1));
    const bool isShort = anyOf(random, 0, 3) == 0;
    shape.samples = unsigned(anyOf(random, 0, isShort ? 600 : int(mostSamples)));
    shape.sound = sounds[anyOf(random, 0, int(std::size(sounds)) - 1)];
    return shape;
}

} // namespace zolt::test
