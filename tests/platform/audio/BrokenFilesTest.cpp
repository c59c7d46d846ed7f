// Damaged files: each valid file is flipped, cut, zeroed and stuffed thousands of times from a fixed seed. Whatever
// comes of it must end in a status, in bounded time and memory.
#include "HandMadeM4a.h"
#include "platform/audio/AudioFileReader.h"

#include <QFile>

#include <random>
#include <sys/resource.h>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

constexpr int rounds = 3000;
constexpr int64_t mostFrames = 200000;
constexpr long mostGrowth = 400 * 1024; ///< kilobytes, the sanitizer's own store of freed memory included

QByteArray damaged(QByteArray bytes, std::mt19937& random)
{
    const int64_t header = std::min<int64_t>(bytes.size(), 1500);
    for (unsigned i = 0, faults = 1 + random() % 6; i < faults && !bytes.isEmpty(); ++i) {
        // Headers are where the harm is, so most faults go there.
        const auto at = static_cast<qsizetype>(random() % (random() % 4 ? header : bytes.size())) % bytes.size();
        const auto rest = std::min<qsizetype>(bytes.size() - at, 4);
        switch (random() % 6) {
        case 0:
            bytes[at] = static_cast<char>(bytes[at] ^ 1 << random() % 8);
            break;
        case 1:
            bytes[at] = static_cast<char>(random());
            break;
        case 2:
            bytes.replace(at, rest, QByteArray(rest, '\xff'));
            break;
        case 3:
            bytes.replace(at, rest, QByteArray(rest, '\0'));
            break;
        case 4:
            bytes.truncate(at);
            break;
        default:
            bytes.insert(at, QByteArray(static_cast<qsizetype>(random() % 40), static_cast<char>(random())));
        }
    }
    return bytes;
}

/// Reads whatever can be read.
void walkThrough(const QString& path)
{
    std::unique_ptr<AudioFileReader> reader;
    if (AudioFileReader::open(path, reader)) return;
    AudioFormat format;
    int64_t frames = 0;
    ASSERT_EQ(reader->dataFormat(format), audioStatus::Ok);
    ASSERT_GT(format.channelsPerFrame, 0u);
    if (reader->lengthInFrames(frames)) return;
    ASSERT_GE(frames, 0);
    if (!format.isLinear() &&
        reader->setClientFormat(linearFormat(format.sampleRate, format.channelsPerFrame, 16, pcmFlag::WaveData)))
        return;
    const auto frameBytes = format.isLinear() ? format.bytesPerFrame : 2 * format.channelsPerFrame;
    std::vector<char> buffer(1024 * frameBytes);
    for (int64_t total = 0, taken = 1; taken > 0 && total < mostFrames; total += taken)
        if (reader->read(buffer.data(), 1024, taken)) return;
}

long peakMemory()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss;
}

class BrokenFiles : public testing::Test
{
protected:
    QByteArray encoded(const QString& name, const QStringList& options)
    {
        const auto source = writeFile(folder_.filePath(u"s.wav"_s), waveFile(makeSamples(44100, 2, 16, 9000)));
        const auto where = folder_.filePath(name);
        runTool(u"ffmpeg"_s, QStringList{u"-v"_s, u"error"_s, u"-y"_s, u"-i"_s, source} + options + QStringList{where});
        return fileBytes(where);
    }

    void damageAndRead(const QByteArray& whole, uint32_t seed)
    {
        std::mt19937 random(seed);
        const auto before = peakMemory();
        for (int round = 0; round < rounds; ++round) {
            const auto where = folder_.filePath(u"broken"_s);
            QFile::remove(where); // a file written anew costs no wait for the disk, one written over does
            writeFile(where, damaged(whole, random));
            ASSERT_NO_FATAL_FAILURE(walkThrough(where)) << "round " << round;
        }
        EXPECT_LT(peakMemory() - before, mostGrowth);
    }

    QTemporaryDir folder_;
};

} // namespace

TEST_F(BrokenFiles, Wave)
{
    damageAndRead(waveFile(makeSamples(44100, 2, 16, 2000)), 1);
}

TEST_F(BrokenFiles, ExtensibleWave)
{
    damageAndRead(waveFile(makeSamples(44100, 6, 24, 500)), 2);
}

TEST_F(BrokenFiles, Aiff)
{
    damageAndRead(aiffFile(makeSamples(44100, 2, 16, 2000)), 3);
}

TEST_F(BrokenFiles, AppleLossless)
{
    damageAndRead(encoded(u"a.m4a"_s, {u"-c:a"_s, u"alac"_s, u"-movflags"_s, u"+faststart"_s}), 4);
}

TEST_F(BrokenFiles, UncompressedAppleLossless)
{
    Numbers numbers(9000);
    for (size_t i = 0; i < numbers.size(); ++i)
        numbers[i] = static_cast<int32_t>(i * 12345);
    damageAndRead(handMadeM4a(numbers, 44100, 2, 32), 5);
}

TEST_F(BrokenFiles, Aac)
{
    damageAndRead(encoded(u"b.m4a"_s, {u"-c:a"_s, u"aac"_s, u"-movflags"_s, u"+faststart"_s}), 6);
}

TEST_F(BrokenFiles, FragmentedAac)
{
    damageAndRead(encoded(u"f.m4a"_s, {u"-c:a"_s, u"aac"_s, u"-movflags"_s, u"+frag_keyframe+empty_moov"_s,
                                       u"-frag_duration"_s, u"50000"_s}),
                  7);
}

TEST_F(BrokenFiles, Caf)
{
    damageAndRead(encoded(u"a.caf"_s, {u"-c:a"_s, u"alac"_s}), 8);
}

TEST_F(BrokenFiles, Mp3)
{
    damageAndRead(encoded(u"a.mp3"_s, {u"-c:a"_s, u"libmp3lame"_s}), 9);
}

TEST_F(BrokenFiles, Au)
{
    damageAndRead(encoded(u"a.au"_s, {u"-c:a"_s, u"pcm_s16be"_s}), 10);
}

TEST_F(BrokenFiles, AtomsThatHoldThemselves)
{
    // Sizes that point back, to nothing and beyond the file.
    const auto head = atom("ftyp", "M4A \0\0\0\0M4A ");
    for (const char* size : {"00000000", "00000001", "00000007", "7fffffff", "80000000", "ffffffff"}) {
        const auto odd = QByteArray::fromHex(size) + "moov" + atom("trak", atom("mdia", {}));
        walkThrough(writeFile(folder_.filePath(u"loop.m4a"_s), head + odd + odd));
    }
}

TEST_F(BrokenFiles, DeeplyNestedAtomsEndInAStatus)
{
    QByteArray nest;
    for (int i = 0; i < 20000; ++i)
        nest = bigEndian(static_cast<uint64_t>(nest.size()) + 8, 4) + "moov" + nest;
    std::unique_ptr<AudioFileReader> reader;
    const auto where =
        writeFile(folder_.filePath(u"deep.m4a"_s), atom("ftyp", QByteArray("M4A \0\0\0\0M4A ", 12)) + nest);
    EXPECT_NE(AudioFileReader::open(where, reader), audioStatus::Ok);
}
