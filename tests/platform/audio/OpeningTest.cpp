#include "AudioSamples.h"
#include "platform/audio/AudioFileReader.h"

#include <QDir>

#include <sys/stat.h>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class Opening : public testing::Test
{
protected:
    QString path(const QString& name) const { return folder_.filePath(name); }

    static AudioStatus open(const QString& path)
    {
        std::unique_ptr<AudioFileReader> reader;
        const auto status = AudioFileReader::open(path, reader);
        EXPECT_EQ(status == audioStatus::Ok, reader != nullptr);
        return status;
    }

    static AudioFormat formatOf(const QString& path)
    {
        std::unique_ptr<AudioFileReader> reader;
        AudioFormat format;
        EXPECT_EQ(AudioFileReader::open(path, reader), audioStatus::Ok) << path.toStdString();
        if (reader) reader->dataFormat(format);
        return format;
    }

    /// A file made by ffmpeg from 5000 stereo frames of 16 bits.
    QString made(const QString& name, const QStringList& options)
    {
        const auto source = writeFile(path(u"source.wav"_s), waveFile(makeSamples(44100, 2, 16, 5000)));
        runTool(u"ffmpeg"_s,
                QStringList{u"-v"_s, u"error"_s, u"-y"_s, u"-i"_s, source} + options + QStringList{path(name)});
        return path(name);
    }

    QTemporaryDir folder_;
};

} // namespace

TEST_F(Opening, LinearFilesOfEveryContainer)
{
    const struct
    {
        QString name;
        QStringList options;
        uint32_t flags;
        uint32_t bits;
    } files[] = {
        {u"a.wav"_s, {}, 12, 16},
        {u"x.wav"_s, {u"-c:a"_s, u"pcm_s24le"_s}, 12, 24},
        {u"f.wav"_s, {u"-c:a"_s, u"pcm_f32le"_s}, 9, 32},
        {u"u.wav"_s, {u"-c:a"_s, u"pcm_u8"_s}, 8, 8},
        {u"a.aiff"_s, {}, 14, 16},
        {u"b.aiff"_s, {u"-c:a"_s, u"pcm_s24be"_s}, 14, 24},
        {u"sowt.aifc"_s, {u"-c:a"_s, u"pcm_s16le"_s, u"-f"_s, u"aiff"_s}, 12, 16},
        {u"a.caf"_s, {u"-c:a"_s, u"pcm_s16be"_s}, 14, 16},
        {u"l.caf"_s, {u"-c:a"_s, u"pcm_s24le"_s}, 12, 24},
        {u"a.au"_s, {u"-c:a"_s, u"pcm_s16be"_s}, 14, 16},
        {u"a.rf64.wav"_s, {u"-rf64"_s, u"always"_s}, 12, 16},
    };
    for (const auto& file : files) {
        const auto where = made(file.name, file.options);
        const auto format = formatOf(where);
        EXPECT_EQ(format.formatId, formatId::LinearPcm) << file.name.toStdString();
        EXPECT_EQ(format.formatFlags, file.flags) << file.name.toStdString();
        EXPECT_EQ(format.bitsPerChannel, file.bits) << file.name.toStdString();
        EXPECT_EQ(format.sampleRate, 44100) << file.name.toStdString();
        EXPECT_EQ(statedLength(where), 5000) << file.name.toStdString();
    }
}

TEST_F(Opening, AppleLosslessTellsItsDepthInItsFlags)
{
    const auto plain = formatOf(made(u"a.m4a"_s, {u"-c:a"_s, u"alac"_s}));
    EXPECT_EQ(plain.formatId, formatId::AppleLossless);
    EXPECT_EQ(plain.formatFlags, 1u);
    EXPECT_EQ(plain.bitsPerChannel, 16u);
    EXPECT_EQ(plain.framesPerPacket, 4096u);
    EXPECT_EQ(plain.bytesPerFrame, 0u);
    const auto deep = formatOf(made(u"b.m4a"_s, {u"-c:a"_s, u"alac"_s, u"-sample_fmt"_s, u"s32p"_s}));
    EXPECT_EQ(deep.formatFlags, 3u);
    EXPECT_EQ(deep.bitsPerChannel, 24u);
    EXPECT_EQ(statedLength(path(u"a.m4a"_s)), 5000);
}

TEST_F(Opening, LossyFiles)
{
    EXPECT_EQ(formatOf(made(u"a.m4a"_s, {u"-c:a"_s, u"aac"_s})).formatId, formatId::Aac);
    EXPECT_EQ(formatOf(made(u"a.mp4"_s, {u"-c:a"_s, u"aac"_s})).formatId, formatId::Aac);
    EXPECT_EQ(formatOf(made(u"a.mp3"_s, {u"-c:a"_s, u"libmp3lame"_s})).formatId, formatId::Mp3);
    EXPECT_EQ(statedLength(path(u"a.mp3"_s)), 5000);
    EXPECT_EQ(formatOf(made(u"a.mp3"_s, {u"-c:a"_s, u"libmp3lame"_s})).bitsPerChannel, 0u);
}

TEST_F(Opening, OtherLosslessFormatsAreRefused)
{
    EXPECT_EQ(open(made(u"a.flac"_s, {})), audioStatus::UnsupportedFileType);
    EXPECT_EQ(open(made(u"a.wv"_s, {})), audioStatus::UnsupportedFileType);
    EXPECT_EQ(open(made(u"a.tta"_s, {})), audioStatus::UnsupportedFileType);
    EXPECT_EQ(open(writeFile(path(u"a.shn"_s), "ajkg\x02" + QByteArray(500, '\x55'))),
              audioStatus::UnsupportedFileType);
    EXPECT_EQ(open(writeFile(path(u"a.ape"_s), "MAC \x96\x0f" + QByteArray(500, '\x55'))),
              audioStatus::UnsupportedFileType);
}

TEST_F(Opening, ATagAheadOfARefusedFormatDoesNotOpenIt)
{
    const QByteArray tag = QByteArray("ID3\x04\0\0\0\0\0\x0a", 10) + QByteArray(10, '\0');
    EXPECT_EQ(open(writeFile(path(u"t.flac"_s), tag + fileBytes(made(u"a.flac"_s, {})))),
              audioStatus::UnsupportedFileType);
    EXPECT_EQ(open(writeFile(path(u"t.tta"_s), tag + fileBytes(made(u"a.tta"_s, {})))),
              audioStatus::UnsupportedFileType);
}

TEST_F(Opening, ContentsCountAndNamesDoNot)
{
    const auto samples = makeSamples(8000, 1, 16, 10);
    EXPECT_EQ(formatOf(writeFile(path(u"wave.aiff"_s), waveFile(samples))).formatFlags, pcmFlag::WaveData);
    EXPECT_EQ(formatOf(writeFile(path(u"aiff.m4a"_s), aiffFile(samples))).formatFlags, pcmFlag::AiffData);
}

TEST_F(Opening, CompressedDataInWaveIsRefused)
{
    EXPECT_EQ(open(made(u"a.wav"_s, {u"-c:a"_s, u"adpcm_ima_wav"_s})), audioStatus::UnsupportedFormat);
}

TEST_F(Opening, WhatIsNoAudioFileGivesAStatus)
{
    EXPECT_EQ(open(path(u"absent.wav"_s)), audioStatus::NotFound);
    EXPECT_EQ(open(folder_.path()), audioStatus::UnsupportedFileType);
    EXPECT_EQ(open(writeFile(path(u"empty.wav"_s), {})), audioStatus::UnsupportedFileType);
    EXPECT_EQ(open(writeFile(path(u"short.wav"_s), "RIFF")), audioStatus::UnsupportedFileType);
    EXPECT_EQ(open(writeFile(path(u"text.wav"_s), "This is not audio at all, only words.")),
              audioStatus::UnsupportedFileType);
    EXPECT_EQ(open(writeFile(path(u"cut.m4a"_s), QByteArray("\0\0\0\x18"
                                                            "ftypM4A ",
                                                            12))),
              audioStatus::InvalidFile);
}

TEST_F(Opening, APipeIsRefusedInsteadOfWaitedFor)
{
    ASSERT_EQ(mkfifo(path(u"pipe.wav"_s).toLocal8Bit().constData(), 0600), 0);
    EXPECT_EQ(open(path(u"pipe.wav"_s)), audioStatus::UnsupportedFileType);
}

TEST_F(Opening, NamesWithProtocolsAndPercentSignsAreOnlyNames)
{
    ASSERT_TRUE(QDir(folder_.path()).mkdir(u"http:"_s));
    const auto made1 = made(u"a.m4a"_s, {u"-c:a"_s, u"alac"_s});
    const auto odd = writeFile(path(u"http:/100% %03d ?é.m4a"_s), fileBytes(made1));
    EXPECT_EQ(formatOf(odd).formatId, formatId::AppleLossless);
}
