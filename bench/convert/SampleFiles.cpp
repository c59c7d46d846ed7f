#include "SampleFiles.h"

#include "platform/audio/AudioFileWriter.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>

namespace zolt::bench {

namespace {

constexpr int rate = 44100;
constexpr int channels = 2;
constexpr int voices = 12;

/// One second of music; it repeats with other noise each time, which a block coder cannot tell from new music.
std::vector<double> oneSecond()
{
    std::vector<double> chord;
    for (int frame = 0; frame < rate; ++frame)
        for (int channel = 0; channel < channels; ++channel) {
            double value = 0;
            for (int voice = 1; voice <= voices; ++voice)
                value += 0.05 * std::sin(frame * 0.013 * voice * (1 + 0.01 * channel)) *
                         (1 + std::sin(frame * 0.00014 * voice));
            chord.push_back(value);
        }
    return chord;
}

void check(AudioStatus status)
{
    if (!status) return;
    std::fprintf(stderr, "sample file: %s\n", qPrintable(audioStatusText(status)));
    std::exit(1);
}

} // namespace

void writeMusic(const QString& path, int seconds)
{
    const auto chord = oneSecond();
    std::minstd_rand random(1);
    std::unique_ptr<AudioFileWriter> writer;
    check(AudioFileWriter::create(path, fileTypeId::Wave, linearFormat(rate, channels, 16, pcmFlag::WaveData), writer));
    std::vector<int16_t> samples(chord.size());
    for (int second = 0; second < seconds; ++second) {
        for (size_t i = 0; i < samples.size(); ++i)
            samples[i] = static_cast<int16_t>(20000 * chord[i] + static_cast<int>(random() % 801) - 400);
        check(writer->write(samples.data(), rate));
    }
    check(writer->dispose());
}

} // namespace zolt::bench
