#include "AudioSamples.h"

#include "platform/audio/AudioFileReader.h"

#include <QFile>
#include <QtEndian>

#include <cmath>
#include <fcntl.h>
#include <random>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zolt::test {

using namespace Qt::StringLiterals;

namespace {

/// One sample as a number in the depth's range.
int32_t sampleAt(int frame, uint32_t channel, double scale, std::mt19937& random)
{
    const double noise = double(random()) / 2147483648.0 - 1;
    const int stretch = frame / 1500 % 4;
    if (stretch == 3) return 0;
    if (stretch == 2) return static_cast<int32_t>(noise * scale);
    const double tone = std::sin(frame * 0.03 * (channel + 1));
    return static_cast<int32_t>((0.7 * tone + 0.01 * noise) * scale);
}

QByteArray unsignedBytes(QByteArray bytes)
{
    for (char& byte : bytes)
        byte = static_cast<char>(byte ^ 0x80);
    return bytes;
}

QByteArray extended(double value)
{
    int exponent = 0;
    const double fraction = std::frexp(value, &exponent);
    return bigEndian(static_cast<uint64_t>(exponent + 16382), 2) +
           bigEndian(static_cast<uint64_t>(std::ldexp(fraction, 64)), 8);
}

/// This program's environment, in which tools take their arguments and print as UTF-8.
std::vector<char*> environmentInUtf8()
{
    static char locale[] = "LC_ALL=C.UTF-8";
    std::vector<char*> entries{locale};
    for (char** entry = environ; *entry; ++entry)
        if (!QByteArrayView(*entry).startsWith("LC_ALL=")) entries.push_back(*entry);
    entries.push_back(nullptr);
    return entries;
}

/// Starts a program with its standard output at the descriptor. @return its id, or -1
pid_t startTool(const QStringList& command, int output)
{
    std::vector<QByteArray> words;
    for (const auto& word : command)
        words.push_back(word.toLocal8Bit());
    std::vector<char*> arguments;
    for (auto& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 0, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&actions, output, 1);
    pid_t child = -1;
    const int fault =
        posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environmentInUtf8().data());
    posix_spawn_file_actions_destroy(&actions);
    return fault == 0 ? child : -1;
}

uint32_t speakerMask(uint32_t channels)
{
    switch (channels) {
    case 3:
        return 0x7;
    case 4:
        return 0x33;
    case 5:
        return 0x37;
    case 6:
        return 0x3f;
    default:
        return 0;
    }
}

} // namespace

Samples makeSamples(double rate, uint32_t channels, uint32_t bits, int frames, uint32_t seed)
{
    Samples samples{.rate = rate, .channels = channels, .bits = bits, .frames = frames};
    std::mt19937 random(seed);
    const double scale = std::ldexp(1.0, static_cast<int>(bits) - 1) - 1;
    for (int frame = 0; frame < frames; ++frame)
        for (uint32_t channel = 0; channel < channels; ++channel)
            samples.little += littleEndian(static_cast<uint32_t>(sampleAt(frame, channel, scale, random)),
                                           static_cast<int>(bits / 8));
    return samples;
}

QByteArray littleEndian(uint64_t value, int bytes)
{
    value = qToLittleEndian(value);
    return QByteArray(reinterpret_cast<const char*>(&value), bytes);
}

QByteArray bigEndian(uint64_t value, int bytes)
{
    value = qToBigEndian(value);
    return QByteArray(reinterpret_cast<const char*>(&value) + 8 - bytes, bytes);
}

QByteArray swapped(const QByteArray& bytes, int bytesPerSample)
{
    QByteArray result = bytes;
    for (qsizetype at = 0; at < bytes.size(); at += bytesPerSample)
        std::reverse(result.begin() + at, result.begin() + at + bytesPerSample);
    return result;
}

QByteArray waveFile(const Samples& samples)
{
    const uint32_t frameBytes = samples.channels * samples.bits / 8;
    const bool extensible = samples.channels > 2;
    const auto rate = static_cast<uint32_t>(samples.rate);
    QByteArray format = littleEndian(extensible ? 0xfffe : 1, 2) + littleEndian(samples.channels, 2) +
                        littleEndian(rate, 4) + littleEndian(rate * frameBytes, 4) + littleEndian(frameBytes, 2) +
                        littleEndian(samples.bits, 2);
    if (extensible)
        format += littleEndian(22, 2) + littleEndian(samples.bits, 2) + littleEndian(speakerMask(samples.channels), 4) +
                  QByteArray::fromHex("0100000000001000800000aa00389b71");
    const auto data = samples.bits == 8 ? unsignedBytes(samples.little) : samples.little;
    const QByteArray padding(data.size() & 1, '\0');
    const QByteArray body = "WAVEfmt " + littleEndian(static_cast<uint64_t>(format.size()), 4) + format + "data" +
                            littleEndian(static_cast<uint64_t>(data.size()), 4) + data + padding;
    return "RIFF" + littleEndian(static_cast<uint64_t>(body.size()), 4) + body;
}

QByteArray aiffFile(const Samples& samples)
{
    const auto data = swapped(samples.little, static_cast<int>(samples.bits / 8));
    const QByteArray common = bigEndian(samples.channels, 2) + bigEndian(static_cast<uint64_t>(samples.frames), 4) +
                              bigEndian(samples.bits, 2) + extended(samples.rate);
    const QByteArray body = "AIFFCOMM" + bigEndian(18, 4) + common + "SSND" +
                            bigEndian(static_cast<uint64_t>(data.size()) + 8, 4) + QByteArray(8, '\0') + data +
                            QByteArray(data.size() & 1, '\0');
    return "FORM" + bigEndian(static_cast<uint64_t>(body.size()), 4) + body;
}

QString writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    EXPECT_EQ(file.write(bytes), bytes.size());
    return path;
}

QByteArray fileBytes(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

QByteArray runTool(const QString& program, const QStringList& arguments)
{
    // Not through Qt's process class: its way to fork leaves the thread sanitizer blind to this thread's locks.
    int ends[2] = {-1, -1};
    EXPECT_EQ(pipe2(ends, O_CLOEXEC), 0);
    const pid_t child = startTool(QStringList{program} + arguments, ends[1]);
    close(ends[1]);
    QFile pipe;
    EXPECT_TRUE(pipe.open(ends[0], QIODevice::ReadOnly, QFileDevice::AutoCloseHandle));
    const auto output = pipe.readAll();
    int status = -1;
    EXPECT_EQ(waitpid(child, &status, 0), child) << program.toStdString();
    EXPECT_EQ(status, 0) << program.toStdString() << ' ' << arguments.join(u' ').toStdString();
    return output;
}

QByteArray decodedByFfmpeg(const QString& path, uint32_t bits)
{
    const auto format = u"s%1le"_s.arg(bits);
    return runTool(u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-i"_s, path, u"-map"_s, u"0:a"_s, u"-f"_s, format, u"-"_s});
}

QByteArray probed(const QString& path, const QString& entries)
{
    return runTool(u"ffprobe"_s, {u"-v"_s, u"error"_s, u"-select_streams"_s, u"a"_s, u"-show_entries"_s,
                                  u"stream="_s + entries, u"-of"_s, u"csv=p=0"_s, path})
        .trimmed();
}

QByteArray readThroughService(const QString& path, const AudioFormat& client)
{
    std::unique_ptr<AudioFileReader> reader;
    EXPECT_EQ(AudioFileReader::open(path, reader), audioStatus::Ok) << path.toStdString();
    if (!reader) return {};
    EXPECT_EQ(reader->setClientFormat(client), audioStatus::Ok);
    QByteArray all;
    std::vector<char> buffer(1000 * client.bytesPerFrame);
    for (;;) {
        int64_t frames = 0;
        const auto status = reader->read(buffer.data(), 1000, frames);
        EXPECT_EQ(status, audioStatus::Ok) << audioStatusText(status).toStdString();
        if (status || !frames) return all;
        all.append(buffer.data(), frames * client.bytesPerFrame);
    }
}

int64_t statedLength(const QString& path)
{
    std::unique_ptr<AudioFileReader> reader;
    int64_t frames = -1;
    if (AudioFileReader::open(path, reader) || reader->lengthInFrames(frames)) return -1;
    return frames;
}

} // namespace zolt::test
