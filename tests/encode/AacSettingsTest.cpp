#include "ConversionFixture.h"
#include "platform/audio/AudioFileWriter.h"
#include "platform/errors/Exceptions.h"
#include "support/LogCapture.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class AacSettings : public Conversion
{
protected:
    std::unique_ptr<AudioFileWriter> writer(uint32_t fileType, const AudioFormat& format)
    {
        std::unique_ptr<AudioFileWriter> made;
        EXPECT_EQ(AudioFileWriter::create(path(u"out"_s), fileType, format, made), audioStatus::Ok);
        return made;
    }
    std::unique_ptr<AudioFileWriter> lossless()
    {
        return writer(fileTypeId::M4a, {.sampleRate = 44100,
                                        .formatId = formatId::AppleLossless,
                                        .formatFlags = 1,
                                        .channelsPerFrame = 2,
                                        .bitsPerChannel = 16});
    }

    /// The reason of the exception, behind one line of log with the text.
    QString reason(AudioFileWriter& out, const QString& logText)
    {
        const LogCapture log;
        try {
            encoder_->setAACSettings(out);
        } catch (const PlatformException& fault) {
            EXPECT_EQ(log.count(logText), 1) << log.lines().join(u'\n').toStdString();
            EXPECT_EQ(fault.name(), u"Exception"_s);
            return fault.reason();
        }
        return {};
    }

    std::shared_ptr<EncodeCoreAudioSync> encoder_ = encoder(u"in"_s, u"out"_s, formatId::Aac, fileTypeId::M4a);
};

} // namespace

TEST_F(AacSettings, AreKept)
{
    encoder_->setMode(2);
    encoder_->setBitrate(192000);
    encoder_->setQuality(80);
    EXPECT_EQ(encoder_->mode(), 2u);
    EXPECT_EQ(encoder_->bitrate(), 192000u);
    EXPECT_EQ(encoder_->quality(), 80u);
}

TEST_F(AacSettings, NeedAConverter)
{
    const auto out = writer(fileTypeId::Wave, linearFormat(44100, 2, 16, pcmFlag::WaveData));
    EXPECT_EQ(reason(*out, u"ExtAudioFileGetProperty kExtAudioFileProperty_AudioConverter failure"_s),
              u"kExtAudioFileProperty_AudioConverter failed pty?"_s);
}

TEST_F(AacSettings, BitRateIsTriedFirst)
{
    encoder_->setBitrate(128000);
    encoder_->setQuality(5);
    EXPECT_EQ(reason(*lossless(), u"ExtAudioFileGetProperty kAudioConverterEncodeBitRate failure"_s),
              u"kAudioConverterEncodeBitRate failed pty?"_s);
}

TEST_F(AacSettings, ThenQuality)
{
    encoder_->setQuality(5);
    EXPECT_EQ(reason(*lossless(), u"AudioConverterSetProperty vbrq failure"_s),
              u"AudioConverterSetProperty vbrqfailed"_s);
}

TEST_F(AacSettings, ThenTheModeEvenIfItIsZero)
{
    EXPECT_EQ(reason(*lossless(), u"AudioConverterSetProperty kAudioCodecBitRateFormat failure"_s),
              u"kAudioCodecBitRateFormat failed"_s);
}

TEST_F(AacSettings, ComeTooLateOnceSamplesWereWritten)
{
    const auto out = writer(fileTypeId::M4a, {.sampleRate = 44100, .formatId = formatId::Aac, .channelsPerFrame = 2});
    ASSERT_EQ(out->setClientFormat(linearFormat(44100, 2, 16, pcmFlag::WaveData)), audioStatus::Ok);
    ASSERT_EQ(out->write("abcd", 1), audioStatus::Ok);
    EXPECT_EQ(reason(*out, u"ExtAudioFileSetProperty kExtAudioFileProperty_ConverterConfig failure"_s),
              u"kExtAudioFileProperty_ConverterConfig failed"_s);
}

TEST_F(AacSettings, AFailureEndsTheConversionInTheTasksError)
{
    const auto source = writeFile(path(u"a.wav"_s), waveFile(makeSamples(44100, 2, 16, 100)));
    const auto conversion = encoder(source, path(u"a.m4a"_s), formatId::Aac, fileTypeId::M4a);
    conversion->setMode(3);
    conversion->setQuality(200);
    conversion->doEncodeCall();
    EXPECT_TRUE(task_->error());
    EXPECT_EQ(task_->results()->results(), failure(source, u"AudioConverterSetProperty vbrqfailed"_s));
}
