#include "encode/EncodeCoreAudioSync.h"

#include "encode/AudioInput.h"
#include "encode/EncodeLog.h"
#include "encode/OutputFormat.h"
#include "encode/StatusFailure.h"
#include "engine/ZOLTTask.h"
#include "platform/audio/AudioFileWriter.h"

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

constexpr int64_t bufferBytes = 32768;

QString formatName(uint32_t formatType, uint32_t fileType)
{
    switch (formatType) {
    case formatId::AppleLossless:
        return u"Apple Lossless"_s;
    case formatId::Aac:
        return u"AAC"_s;
    case formatId::LinearPcm:
        return fileType == fileTypeId::Aiff ? u"AIFF"_s : u"WAV"_s;
    default:
        return {};
    }
}

/// Four characters of status tell a person nothing.
void tellRefusal(AudioStatus status, const QString& name, const AudioFormat& output)
{
    if (status != audioStatus::UnsupportedFormat) return;
    qCWarning(encodeLog, "%s of %u channels, %u bits and %.0f Hz can't be written", qUtf8Printable(name),
              output.channelsPerFrame, output.bitsPerChannel, output.sampleRate);
}

/// One step of handing over settings: a failure is logged in one wording and thrown in another.
void requireSetting(AudioStatus status, const char* logText, const QString& reason)
{
    if (!status) return;
    qCWarning(encodeLog, "%s", logText);
    throw PlatformException(u"Exception"_s, reason);
}

} // namespace

/// Goes from the last to the first: the output is disposed ahead of the input.
struct EncodeCoreAudioSync::Files
{
    std::unique_ptr<AudioFileReader> input;
    std::unique_ptr<AudioFileWriter> output;
    AudioFormat inputFormat;
    AudioFormat clientFormat;
    int64_t inputFrames = 0;
};

std::shared_ptr<EncodeCoreAudioSync> EncodeCoreAudioSync::initEncodeWithTaskFileNameOutputFileFormatTypeFileType(
    std::shared_ptr<ZOLTTask> task, const QString& fileName, const QString& outputFile, uint32_t formatType,
    uint32_t fileType)
{
    std::shared_ptr<EncodeCoreAudioSync> encoder(new EncodeCoreAudioSync);
    encoder->task_ = std::move(task);
    encoder->fileName_ = fileName;
    encoder->outFile_ = outputFile;
    encoder->formatType_ = formatType;
    encoder->fileType_ = fileType;
    encoder->formatStringValue_ = formatName(formatType, fileType);
    return encoder;
}

void EncodeCoreAudioSync::doEncodeCall() noexcept
{
    task_->stageBegins();
    Files files;
    try {
        convert(files);
    } catch (const PlatformException& fault) {
        report(fault.reason());
    } catch (const std::exception& fault) {
        report(QString::fromUtf8(fault.what()));
    }
}

void EncodeCoreAudioSync::convert(Files& files)
{
    openInput(files);
    createOutput(files);
    copyFrames(files);
    // The last packets and the index are written here. A file that lacks them must not pass for a whole one: the
    // caller may delete the source.
    const auto status = files.output->dispose();
    if (!task_->cancelled()) requireStatus(status, u"ExtAudioFileDispose failed"_s);
}

void EncodeCoreAudioSync::openInput(Files& files) const
{
    files.input = openedForReading(fileName_, files.inputFormat);
    files.inputFrames = framesOf(*files.input);
}

void EncodeCoreAudioSync::createOutput(Files& files)
{
    const auto output = outputFormatFor(files.inputFormat, formatType_, fileType_);
    const auto created = AudioFileWriter::create(outFile_, fileType_, output, files.output);
    tellRefusal(created, formatStringValue_, output);
    requireStatus(created, u"ExtAudioFileCreateWithURL failed"_s);
    // Linear data flows unchanged into the output's encoder; compressed data is decoded to the output's linear form.
    files.clientFormat = files.inputFormat.isLinear() ? files.inputFormat : output;
    if (files.input->setClientFormat(files.clientFormat))
        throw PlatformException(u"Exception"_s,
                                u"ExtAudioFileSetProperty inFile, kExtAudioFileProperty_ClientDataFormat failed"_s);
    if (const auto status = files.output->setClientFormat(files.clientFormat)) {
        qCWarning(encodeLog, "Error %i", status);
        throw PlatformException(u"Exception"_s,
                                u"ExtAudioFileSetProperty outFile, kExtAudioFileProperty_ClientDataFormat failed"_s);
    }
    if (formatType_ == formatId::Aac) setAACSettings(*files.output);
}

void EncodeCoreAudioSync::setAACSettings(AudioFileWriter& outFile)
{
    EncoderControl* control = nullptr;
    auto status = outFile.encoderControl(control);
    requireSetting(status, "ExtAudioFileGetProperty kExtAudioFileProperty_AudioConverter failure",
                   u"kExtAudioFileProperty_AudioConverter failed "_s + audioStatusText(status));
    if (bitrate_ != 0) {
        status = control->set(converterProperty::BitRate, bitrate_);
        requireSetting(status, "ExtAudioFileGetProperty kAudioConverterEncodeBitRate failure",
                       u"kAudioConverterEncodeBitRate failed "_s + audioStatusText(status));
    }
    if (quality_ != 0)
        requireSetting(control->set(converterProperty::Quality, quality_), "AudioConverterSetProperty vbrq failure",
                       u"AudioConverterSetProperty vbrqfailed"_s);
    requireSetting(control->set(converterProperty::BitRateMode, mode_),
                   "AudioConverterSetProperty kAudioCodecBitRateFormat failure", u"kAudioCodecBitRateFormat failed"_s);
    EncoderSettings settings;
    requireSetting(control->settings(settings), "AudioConverterGetProperty kAudioConverterPropertySettings failure",
                   u"kAudioConverterPropertySettings failed"_s);
    requireSetting(outFile.setEncoderSettings(settings),
                   "ExtAudioFileSetProperty kExtAudioFileProperty_ConverterConfig failure",
                   u"kExtAudioFileProperty_ConverterConfig failed"_s);
}

void EncodeCoreAudioSync::copyFrames(Files& files) const
{
    alignas(8) uint8_t buffer[bufferBytes];
    const int64_t framesPerRound = bufferBytes / files.clientFormat.bytesPerFrame;
    for (int64_t counter = 1; !task_->cancelled(); ++counter) {
        int64_t frames = 0;
        if (files.input->read(buffer, framesPerRound, frames))
            throw PlatformException(u"Exception"_s, u"ExtAudioFileRead failed"_s);
        if (frames == 0) break;
        if (const auto status = files.output->write(buffer, frames)) {
            qCWarning(encodeLog, "Writing ended with %s", qUtf8Printable(audioStatusText(status)));
            throw PlatformException(u"Exception"_s, u"ExtAudioFileWrite failed"_s);
        }
        // An estimate from the latest round, right as long as rounds are full; the last one falls back.
        showProgress(100.0 * static_cast<double>(frames * counter) / static_cast<double>(files.inputFrames));
    }
}

void EncodeCoreAudioSync::showProgress(double progress) const
{
    task_->topTextField()->setStringValue(u"Encoding to %1: %2%"_s.arg(formatStringValue_, fixedSix(progress)));
    task_->progressIndicator()->setDoubleValue(progress);
}

/// Kept: the wording says Apple Lossless for every target.
void EncodeCoreAudioSync::report(const QString& reason) const
{
    qCWarning(encodeLog, "Exception %s", qUtf8Printable(reason));
    task_->setError(true);
    if (const auto results = task_->results())
        results->setResults(u"Error encoding %1 to Apple Lossless:\n%2"_s.arg(fileName_, reason));
}

} // namespace zolt
