// WAV files of every kind of sound that a codec treats in a way of its own.
#pragma once

#include <QByteArray>

#include <random>

namespace zolt::test {

using Random = std::mt19937;

enum class Sound { Silence, Noise, FullSquare, Sines, EqualChannels, Steps, QuietThenLoud };
constexpr Sound sounds[] = {Sound::Silence,       Sound::Noise, Sound::FullSquare,   Sound::Sines,
                            Sound::EqualChannels, Sound::Steps, Sound::QuietThenLoud};

struct WavShape
{
    unsigned channels = 2, rate = 44100, bits = 16;
    unsigned samples = 0; ///< a channel
    Sound sound = Sound::Noise;
};

/// The samples alone.
QByteArray makeSamples(const WavShape& shape, Random& random);

/// A plain header of 44 bytes.
QByteArray wavHeaderOf(const WavShape& shape);

/// A whole file.
QByteArray makeWav(const WavShape& shape, Random& random);

/// Any shape of up to `mostSamples`.
WavShape randomShape(Random& random, unsigned mostSamples, std::initializer_list<unsigned> depths,
                     unsigned mostChannels = 2);

} // namespace zolt::test
