#include "AudioSamples.h"
#include "platform/audio/AudioFileReader.h"
#include "platform/audio/AudioFileWriter.h"
#include "platform/audio/LinearSink.h"
#include "support/FileSizeLimit.h"

#include <QFile>

#include <barrier>
#include <sys/stat.h>
#include <thread>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class Writing : public testing::Test
{
protected:
    QString path(const QString& name) const { return folder_.filePath(name); }

    std::unique_ptr<AudioFileWriter> create(const QString& where, uint32_t fileType, const AudioFormat& format)
    {
        std::unique_ptr<AudioFileWriter> writer;
        EXPECT_EQ(AudioFileWriter::create(where, fileType, format, writer), audioStatus::Ok);
        return writer;
    }

    AudioStatus creating(uint32_t fileType, const AudioFormat& format)
    {
        std::unique_ptr<AudioFileWriter> writer;
        return AudioFileWriter::create(path(u"refused"_s), fileType, format, writer);
    }

    /// Writes little-endian samples to a file of the type, and gives the file's bytes.
    QByteArray written(const Samples& samples, uint32_t fileType, uint32_t flags)
    {
        const auto where = path(u"out"_s);
        auto writer = create(where, fileType, linearFormat(samples.rate, samples.channels, samples.bits, flags));
        const auto client = linearFormat(samples.rate, samples.channels, samples.bits, pcmFlag::WaveData);
        EXPECT_EQ(writer->setClientFormat(client), audioStatus::Ok);
        EXPECT_EQ(writer->write(samples.little.constData(), samples.frames), audioStatus::Ok);
        EXPECT_EQ(writer->dispose(), audioStatus::Ok);
        return fileBytes(where);
    }

    QTemporaryDir folder_;
};

AudioFormat lossless(uint32_t bits, uint32_t channels = 2, double rate = 44100)
{
    return {.sampleRate = rate,
            .formatId = formatId::AppleLossless,
            .formatFlags = appleLosslessFlags(bits),
            .channelsPerFrame = channels,
            .bitsPerChannel = bits};
}

AudioFormat aac(double rate = 44100, uint32_t channels = 2)
{
    return {.sampleRate = rate, .formatId = formatId::Aac, .channelsPerFrame = channels};
}

const AudioFormat cd = linearFormat(44100, 2, 16, pcmFlag::WaveData);

} // namespace

TEST_F(Writing, WaveFilesAreToTheByteWhatAHandWrites)
{
    for (const uint32_t bits : {8u, 16u, 24u, 32u})
        for (const uint32_t channels : {1u, 2u, 6u})
            for (const int frames : {0, 1, 4999}) {
                const auto samples = makeSamples(48000, channels, bits, frames);
                EXPECT_EQ(written(samples, fileTypeId::Wave, pcmFlag::WaveData), waveFile(samples))
                    << bits << ' ' << channels << ' ' << frames;
            }
}

TEST_F(Writing, AiffFilesAreToTheByteWhatAHandWrites)
{
    for (const uint32_t bits : {8u, 16u, 24u, 32u})
        for (const int frames : {0, 1, 4999})
            for (const double rate : {8000.0, 44100.0, 192000.0}) {
                const auto samples = makeSamples(rate, 1, bits, frames);
                EXPECT_EQ(written(samples, fileTypeId::Aiff, pcmFlag::AiffData), aiffFile(samples))
                    << bits << ' ' << frames << ' ' << rate;
            }
}

TEST_F(Writing, StereoWaveOfTwentyFourBitsIsTakenByShntool)
{
    const auto samples = makeSamples(48000, 2, 24, 1000);
    written(samples, fileTypeId::Wave, pcmFlag::WaveData);
    ASSERT_TRUE(QFile::rename(path(u"out"_s), path(u"out.wav"_s)));
    EXPECT_TRUE(runTool(u"shntool"_s, {u"hash"_s, path(u"out.wav"_s)}).contains("out.wav"));
}

TEST_F(Writing, SixChannelWaveIsTakenByFlac)
{
    const auto samples = makeSamples(48000, 6, 24, 1000);
    written(samples, fileTypeId::Wave, pcmFlag::WaveData);
    runTool(u"flac"_s, {u"-s"_s, u"-f"_s, u"-o"_s, path(u"out.flac"_s), path(u"out"_s)});
    EXPECT_EQ(decodedByFfmpeg(path(u"out.flac"_s), 24), samples.little);
}

TEST_F(Writing, DataThatAKindOfFileCannotHoldIsRefused)
{
    EXPECT_EQ(creating(fileTypeId::Wave, linearFormat(44100, 2, 16, pcmFlag::AiffData)),
              audioStatus::UnsupportedFormat);
    EXPECT_EQ(creating(fileTypeId::Aiff, cd), audioStatus::UnsupportedFormat);
    EXPECT_EQ(creating(fileTypeId::Wave, linearFormat(44100, 2, 20, pcmFlag::WaveData)),
              audioStatus::UnsupportedFormat);
    EXPECT_EQ(creating(fileTypeId::Wave, linearFormat(44100, 2, 0, pcmFlag::WaveData)), audioStatus::UnsupportedFormat);
    EXPECT_EQ(creating(fileTypeId::Wave, linearFormat(44100, 2, 64, pcmFlag::WaveData)),
              audioStatus::UnsupportedFormat);
    EXPECT_EQ(creating(fileTypeId::Wave, linearFormat(44100, 0, 16, pcmFlag::WaveData)),
              audioStatus::UnsupportedFormat);
    EXPECT_EQ(creating(fileTypeId::M4a, cd), audioStatus::UnsupportedFormat);
    EXPECT_EQ(creating(fileTypeId::Wave, lossless(16)), audioStatus::UnsupportedFormat);
    EXPECT_EQ(creating(fourCharCode("caff"), cd), audioStatus::UnsupportedFormat);
    EXPECT_FALSE(QFile::exists(path(u"refused"_s)));
}

TEST_F(Writing, DepthsThatTheLosslessEncoderWouldAlterAreRefused)
{
    for (const uint32_t bits : {8u, 32u, 0u})
        EXPECT_EQ(creating(fileTypeId::M4a, lossless(bits)), audioStatus::UnsupportedFormat) << bits;
    auto contradiction = lossless(24);
    contradiction.formatFlags = appleLosslessFlags(16);
    EXPECT_EQ(creating(fileTypeId::M4a, contradiction), audioStatus::UnsupportedFormat);
    EXPECT_EQ(creating(fileTypeId::M4a, lossless(16, 9)), audioStatus::UnsupportedFormat);
    EXPECT_EQ(creating(fileTypeId::M4a, lossless(16, 0)), audioStatus::UnsupportedFormat);
}

TEST_F(Writing, RatesThatTheAacEncoderDoesNotHaveAreRefused)
{
    EXPECT_EQ(creating(fileTypeId::M4a, aac(192000)), audioStatus::UnsupportedFormat);
    EXPECT_EQ(creating(fileTypeId::M4a, aac(37800)), audioStatus::UnsupportedFormat);
    EXPECT_EQ(creating(fileTypeId::M4a, aac(44100, 9)), audioStatus::UnsupportedFormat);
}

TEST_F(Writing, ARefusedFormatLeavesAnExistingFileAlone)
{
    writeFile(path(u"refused"_s), "precious");
    EXPECT_EQ(creating(fileTypeId::M4a, lossless(32)), audioStatus::UnsupportedFormat);
    EXPECT_EQ(fileBytes(path(u"refused"_s)), "precious");
}

TEST_F(Writing, AFileIsLeftAsItWasFoundUntilSamplesCome)
{
    writeFile(path(u"refused"_s), "precious");
    for (const auto& [fileType, format] : {std::pair{fileTypeId::Wave, cd}, {fileTypeId::M4a, aac()}})
        for (const auto& name : {u"refused"_s, u"new"_s}) {
            auto writer = create(path(name), fileType, format);
            EXPECT_EQ(writer->setClientFormat(lossless(16)), audioStatus::UnsupportedFormat);
        }
    EXPECT_EQ(fileBytes(path(u"refused"_s)), "precious");
    EXPECT_FALSE(QFile::exists(path(u"new"_s)));
    EXPECT_EQ(create(path(u"refused"_s), fileTypeId::Wave, cd)->dispose(), audioStatus::Ok);
    EXPECT_EQ(fileBytes(path(u"refused"_s)), waveFile(makeSamples(44100, 2, 16, 0)));
}

TEST_F(Writing, AnExistingFileIsReplacedAsAWhole)
{
    const auto samples = makeSamples(44100, 2, 16, 10);
    writeFile(path(u"out"_s), QByteArray(100000, 'x'));
    EXPECT_EQ(written(samples, fileTypeId::Wave, pcmFlag::WaveData), waveFile(samples));
}

TEST_F(Writing, APathThatIsOpenForReadingIsRefusedByAnyName)
{
    const auto bytes = waveFile(makeSamples(44100, 2, 16, 100));
    const auto source = writeFile(path(u"refused"_s), bytes);
    ASSERT_TRUE(QFile::link(source, path(u"link"_s)));
    std::unique_ptr<AudioFileReader> reader;
    ASSERT_EQ(AudioFileReader::open(source, reader), audioStatus::Ok);
    std::unique_ptr<AudioFileReader> second;
    ASSERT_EQ(AudioFileReader::open(source, second), audioStatus::Ok);
    second.reset();
    std::unique_ptr<AudioFileWriter> writer;
    EXPECT_EQ(AudioFileWriter::create(source, fileTypeId::Wave, cd, writer), audioStatus::FileInUse);
    EXPECT_EQ(AudioFileWriter::create(path(u"link"_s), fileTypeId::M4a, aac(), writer), audioStatus::FileInUse);
    EXPECT_EQ(fileBytes(source), bytes);
    reader.reset();
    EXPECT_EQ(AudioFileWriter::create(source, fileTypeId::Wave, cd, writer), audioStatus::Ok);
}

TEST_F(Writing, TwoWritersNeverShareAFile)
{
    auto writer = create(path(u"refused"_s), fileTypeId::Wave, cd);
    EXPECT_EQ(creating(fileTypeId::Wave, cd), audioStatus::FileInUse);
    EXPECT_EQ(writer->dispose(), audioStatus::Ok);
    EXPECT_EQ(creating(fileTypeId::Wave, cd), audioStatus::Ok);
}

TEST_F(Writing, OfTwoWritersThatComeAtOnceOnlyOneGetsTheFile)
{
    for (int round = 0; round < 300; ++round) {
        std::unique_ptr<AudioFileWriter> writers[2];
        std::barrier together(2);
        const auto create = [&](int side) {
            together.arrive_and_wait();
            AudioFileWriter::create(path(QString::number(round)), fileTypeId::Wave, cd, writers[side]);
        };
        std::thread other(create, 1);
        create(0);
        other.join();
        ASSERT_NE(writers[0] == nullptr, writers[1] == nullptr) << round;
    }
}

TEST_F(Writing, APipeWithoutAReaderIsRefusedInsteadOfWaitedFor)
{
    ASSERT_EQ(mkfifo(path(u"refused"_s).toLocal8Bit().constData(), 0600), 0);
    EXPECT_NE(creating(fileTypeId::Wave, cd), audioStatus::Ok);
    EXPECT_NE(creating(fileTypeId::M4a, aac()), audioStatus::Ok);
}

TEST_F(Writing, FoldersThatAreMissingGiveAStatus)
{
    std::unique_ptr<AudioFileWriter> writer;
    EXPECT_EQ(AudioFileWriter::create(path(u"no/where.wav"_s), fileTypeId::Wave, cd, writer), audioStatus::NotFound);
    EXPECT_EQ(AudioFileWriter::create(path(u"no/where.m4a"_s), fileTypeId::M4a, aac(), writer), audioStatus::NotFound);
    EXPECT_NE(AudioFileWriter::create(folder_.path(), fileTypeId::Wave, cd, writer), audioStatus::Ok);
    EXPECT_EQ(writer, nullptr);
}

TEST_F(Writing, AFullDiskIsSeenAtTheLatestWhenTheFileIsFinished)
{
    const auto samples = makeSamples(44100, 2, 16, 100000);
    for (const auto& [fileType, format] : {std::pair{fileTypeId::Wave, cd}, {fileTypeId::M4a, lossless(16)}}) {
        auto writer = create(u"/dev/full"_s, fileType, format);
        ASSERT_EQ(writer->setClientFormat(cd), audioStatus::Ok);
        const auto status = writer->write(samples.little.constData(), samples.frames);
        EXPECT_EQ(status ? status : writer->dispose(), audioStatus::DiskFull);
    }
}

TEST_F(Writing, AWriteThatFailsInTheMidstOfABlockEndsInAStatus)
{
    // AAC packets are shorter than the blocks in which samples come, so the encoder is left with up to three whole
    // ones; which packet fails moves on within its block with the length of the first write.
    const auto samples = makeSamples(44100, 2, 16, 600000);
    const FileSizeLimit limit(5000);
    for (const int64_t first : {1, 1024, 2048, 3072}) {
        auto writer = create(path(u"full"_s), fileTypeId::M4a, aac());
        ASSERT_EQ(writer->setClientFormat(cd), audioStatus::Ok);
        EXPECT_EQ(writer->setEncoderSettings({.bitRate = 256000}), audioStatus::Ok);
        EXPECT_EQ(writer->write(samples.little.constData(), first), audioStatus::Ok);
        EXPECT_EQ(writer->write(samples.little.constData(), samples.frames), audioStatus::FileTooLarge);
        EXPECT_EQ(writer->write(samples.little.constData(), samples.frames), audioStatus::FileTooLarge);
        EXPECT_EQ(writer->dispose(), audioStatus::FileTooLarge);
    }
}

TEST_F(Writing, AKindOfFileEndsWhereItsSizesEnd)
{
    LinearHeader header = *linearHeaderFor(fileTypeId::Wave, cd);
    EXPECT_EQ(header.longestFile, 4294967295);
    EXPECT_EQ(linearHeaderFor(fileTypeId::Aiff, linearFormat(44100, 2, 16, pcmFlag::AiffData))->longestFile,
              2147483647);
    header.longestFile = 44 + 40;
    LinearSink sink(path(u"a.wav"_s), header, cd);
    ASSERT_EQ(sink.begin(), audioStatus::Ok);
    const QByteArray frames(44, 'x');
    const auto* bytes = reinterpret_cast<const uint8_t*>(frames.constData());
    EXPECT_EQ(sink.writeBytes(bytes, 40), audioStatus::Ok);
    EXPECT_EQ(sink.writeBytes(bytes, 4), audioStatus::FileTooLarge);
    ASSERT_EQ(sink.finish(), audioStatus::Ok);
    EXPECT_EQ(statedLength(path(u"a.wav"_s)), 10);
}

TEST_F(Writing, FilesOfNoFramesAreFilesAllTheSame)
{
    for (const auto& [format, codec] : {std::pair{lossless(16), "alac"}, {aac(), "aac"}}) {
        auto writer = create(path(u"a.m4a"_s), fileTypeId::M4a, format);
        ASSERT_EQ(writer->setClientFormat(cd), audioStatus::Ok);
        EXPECT_EQ(writer->dispose(), audioStatus::Ok);
        EXPECT_EQ(statedLength(path(u"a.m4a"_s)), 0);
        EXPECT_EQ(probed(path(u"a.m4a"_s), u"codec_name,sample_rate,channels"_s), codec + QByteArray(",44100,2"));
        EXPECT_EQ(readThroughService(path(u"a.m4a"_s), cd), QByteArray());
    }
}

TEST_F(Writing, AWriterIsFinishedOnce)
{
    auto writer = create(path(u"a.wav"_s), fileTypeId::Wave, cd);
    EncoderControl* control = nullptr;
    EXPECT_EQ(writer->dispose(), audioStatus::Ok);
    EXPECT_EQ(writer->dispose(), audioStatus::WrongState);
    EXPECT_EQ(writer->write("abcd", 1), audioStatus::WrongState);
    EXPECT_EQ(writer->setClientFormat(cd), audioStatus::WrongState);
    EXPECT_EQ(writer->encoderControl(control), audioStatus::WrongState);
    EXPECT_EQ(writer->setEncoderSettings({}), audioStatus::WrongState);
}

TEST_F(Writing, DroppingAWriterFinishesItsFile)
{
    const auto samples = makeSamples(44100, 2, 16, 10);
    auto writer = create(path(u"a.wav"_s), fileTypeId::Wave, cd);
    EXPECT_EQ(writer->write(samples.little.constData(), 10), audioStatus::Ok);
    writer.reset();
    EXPECT_EQ(fileBytes(path(u"a.wav"_s)), waveFile(samples));
}

TEST_F(Writing, ClientFormatsAreLinearAndHaveTheFilesChannels)
{
    auto writer = create(path(u"a.m4a"_s), fileTypeId::M4a, lossless(16));
    EXPECT_EQ(writer->write("abcd", 1), audioStatus::WrongState);
    EXPECT_EQ(writer->setClientFormat(lossless(16)), audioStatus::UnsupportedFormat);
    EXPECT_EQ(writer->setClientFormat(linearFormat(44100, 1, 16, pcmFlag::WaveData)), audioStatus::UnsupportedFormat);
    EXPECT_EQ(writer->setClientFormat(cd), audioStatus::Ok);
    EXPECT_EQ(writer->write("abcd", 1), audioStatus::Ok);
    EXPECT_EQ(writer->setClientFormat(cd), audioStatus::WrongState);
}

TEST_F(Writing, SettingsBelongToTheAacEncoder)
{
    EncoderControl* control = nullptr;
    EXPECT_EQ(create(path(u"a.wav"_s), fileTypeId::Wave, cd)->encoderControl(control), audioStatus::InvalidProperty);
    auto tight = create(path(u"a.m4a"_s), fileTypeId::M4a, lossless(16));
    ASSERT_EQ(tight->encoderControl(control), audioStatus::Ok);
    EXPECT_EQ(control->set(converterProperty::BitRate, 128000), audioStatus::InvalidProperty);

    auto writer = create(path(u"b.m4a"_s), fileTypeId::M4a, aac());
    ASSERT_EQ(writer->encoderControl(control), audioStatus::Ok);
    EXPECT_EQ(control->set(converterProperty::BitRate, 128000), audioStatus::Ok);
    EXPECT_EQ(control->set(converterProperty::Quality, 127), audioStatus::Ok);
    EXPECT_EQ(control->set(converterProperty::BitRateMode, 3), audioStatus::Ok);
    EXPECT_EQ(control->set(converterProperty::BitRate, 0xffffffff), audioStatus::InvalidValue);
    EXPECT_EQ(control->set(converterProperty::Quality, 128), audioStatus::InvalidValue);
    EXPECT_EQ(control->set(converterProperty::BitRateMode, 4), audioStatus::InvalidValue);
    EXPECT_EQ(control->set(fourCharCode("none"), 1), audioStatus::InvalidProperty);
    EncoderSettings settings;
    EXPECT_EQ(control->settings(settings), audioStatus::Ok);
    EXPECT_EQ(settings.bitRate, 128000u);
    EXPECT_EQ(settings.quality, 127u);
    EXPECT_EQ(settings.mode, bitRateMode::Variable);
    EXPECT_EQ(writer->setEncoderSettings(settings), audioStatus::Ok);
}

TEST_F(Writing, AChangedRateGivesTheRoundedLength)
{
    for (const int frames : {1, 2, 999, 96000, 96001}) {
        const auto samples = makeSamples(96000, 2, 16, frames);
        auto writer = create(path(u"a.m4a"_s), fileTypeId::M4a, aac(48000));
        ASSERT_EQ(writer->setClientFormat(linearFormat(96000, 2, 16, pcmFlag::WaveData)), audioStatus::Ok);
        EXPECT_EQ(writer->write(samples.little.constData(), frames), audioStatus::Ok);
        ASSERT_EQ(writer->dispose(), audioStatus::Ok);
        EXPECT_EQ(statedLength(path(u"a.m4a"_s)), (frames + 1) / 2) << frames;
    }
}
