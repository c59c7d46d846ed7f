// Files that no one here wrote, where the folder with them stands beside the source tree.
#include "AudioSamples.h"
#include "platform/audio/AudioFileReader.h"

#include <QDir>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class ForeignFiles : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!folder_.exists()) GTEST_SKIP() << "left out: the folder of third-party files is absent";
    }

    AudioStatus open(const QString& name, AudioFormat& format)
    {
        std::unique_ptr<AudioFileReader> reader;
        const auto status = AudioFileReader::open(folder_.filePath(name), reader);
        if (!status) reader->dataFormat(format);
        return status;
    }

    QDir folder_{QStringLiteral(ZOLT_FIXTURES)};
};

} // namespace

TEST_F(ForeignFiles, AreRecognisedByWhatTheyHold)
{
    const struct
    {
        QString name;
        uint32_t id;
        uint32_t flags;
        int64_t frames;
    } files[] = {
        {u"empty_alac.m4a"_s, formatId::AppleLossless, 1, 163392},
        {u"no-tags.m4a"_s, formatId::Aac, 0, 163520},
        {u"has-tags.m4a"_s, formatId::Aac, 0, 163520},
        {u"noise.aif"_s, formatId::LinearPcm, 14, 101},
        {u"rf64.wav"_s, formatId::LinearPcm, 12, 2400},
        {u"xing.mp3"_s, formatId::Mp3, 0, 91008},
    };
    for (const auto& file : files) {
        AudioFormat format;
        ASSERT_EQ(open(file.name, format), audioStatus::Ok) << file.name.toStdString();
        EXPECT_EQ(format.formatId, file.id) << file.name.toStdString();
        EXPECT_EQ(format.formatFlags, file.flags) << file.name.toStdString();
        EXPECT_EQ(statedLength(folder_.filePath(file.name)), file.frames) << file.name.toStdString();
    }
}

TEST_F(ForeignFiles, OtherLosslessFormatsAreRefused)
{
    AudioFormat format;
    for (const auto& name : {u"2sec-silence.shn"_s, u"click.wv"_s, u"tagged.tta"_s, u"mac-399.ape"_s,
                             u"mac-399-tagged.ape"_s, u"multiple-vc.flac"_s})
        EXPECT_EQ(open(name, format), audioStatus::UnsupportedFileType) << name.toStdString();
}

TEST_F(ForeignFiles, BrokenOnesEndInAStatusOrInWhatIsThere)
{
    for (const auto& name : folder_.entryList(QDir::Files)) {
        std::unique_ptr<AudioFileReader> reader;
        if (AudioFileReader::open(folder_.filePath(name), reader)) continue;
        AudioFormat format;
        int64_t frames = 0;
        ASSERT_EQ(reader->dataFormat(format), audioStatus::Ok);
        if (reader->lengthInFrames(frames)) continue;
        EXPECT_GE(frames, 0) << name.toStdString();
        EXPECT_LT(frames, int64_t(1) << 24) << name.toStdString();
    }
}
