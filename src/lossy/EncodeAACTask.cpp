#include "lossy/EncodeAACTask.h"

#include "encode/EncodeCoreAudioSync.h"
#include "encode/TemporaryFile.h"
#include "lossy/LossyTitles.h"
#include "platform/audio/EncoderSettings.h"
#include "shell/Constants.h"
#include "tags/AACTagsHelper.h"
#include "tags/TagLibTagsHelper.h"

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

using C = Constants;

constexpr ThreadEnd aacEnd{.drops = ThreadEnd::Drops::AheadOfRow};
constexpr int32_t bitsPerKilobit = 1000;

/// What a mode means to the encoder, and how the tool string names it.
struct Mode
{
    QString type;
    uint32_t mode;
    QString text; ///< %1 is the level
};

const std::vector<Mode>& modes()
{
    static const std::vector<Mode> rows{
        {lossyTitle::CBR, bitRateMode::Constant, u"CBR %1kbps"_s},
        {lossyTitle::ABR, bitRateMode::Average, u"ABR %1kbps"_s},
        {lossyTitle::VBR_CONSTRAINED, bitRateMode::ConstrainedVariable, u"VBR Constrained %1kbps"_s},
        {lossyTitle::VBR, bitRateMode::Variable, u"True VBR Quality %1"_s},
    };
    return rows;
}

const Mode* modeOf(const QString& type)
{
    const auto row = std::find_if(modes().begin(), modes().end(), [&](const Mode& each) { return each.type == type; });
    return row == modes().end() ? nullptr : &*row;
}

} // namespace

std::shared_ptr<EncodeAACTask> EncodeAACTask::initEncodeTaskWithQueueFileNameTypeOutputPathLevel(
    ZOLTTaskQueue* queue, const QString& fileName, const QString& type, const QString& outputPath, int32_t level)
{
    std::shared_ptr<EncodeAACTask> task(new EncodeAACTask(aacEnd));
    task->type_ = type;
    task->level_ = level;
    task->setUpStaged(queue, fileName, outputPath);
    task->outFile_ = task->outputFile(u"m4a"_s);
    return task;
}

int EncodeAACTask::stageCount() const
{
    return sourceType() == C::SHN || sourceType() == C::FLAC ? 2 : 1;
}

void EncodeAACTask::doStartTask()
{
    beginRow();
    topTextField()->setStringValue(u"Encoding to AAC"_s);
    doEncodeCall();
    if (!error()) finishFile(); // kept: also after a cancel, on what is there
    stopTask(nullptr);
    deleteSource(fileName());
}

void EncodeAACTask::doEncodeCall()
{
    const QString wav = decoded();
    const TemporaryFile temporary(wav);
    const QString input = wav.isEmpty() ? fileName() : wav;
    topTextField()->setStringValue(u"Encoding to AAC"_s);
    const auto encoder = EncodeCoreAudioSync::initEncodeWithTaskFileNameOutputFileFormatTypeFileType(
        shared_from_this(), input, outFile_, formatId::Aac, fileTypeId::M4a);
    applySettings(*encoder);
    encoder->doEncodeCall();
}

/// The source as a temporary WAV; none where it goes to the audio service itself, which then answers for it.
QString EncodeAACTask::decoded()
{
    const QString kind = sourceType();
    if (kind == C::SHN) {
        topTextField()->setStringValue(u"Decoding SHN to Wav"_s);
        return convertSHNToWav(fileName());
    }
    if (kind == C::FLAC) {
        topTextField()->setStringValue(u"Decoding FLAC to Wav"_s);
        return convertFLACToWav(fileName());
    }
    return {};
}

void EncodeAACTask::applySettings(EncodeCoreAudioSync& encoder) const
{
    const Mode* const row = modeOf(type_);
    if (!row) return;
    encoder.setMode(row->mode);
    if (row->mode == bitRateMode::Variable)
        encoder.setQuality(uint32_t(level_));
    else
        encoder.setBitrate(uint32_t(level_) * bitsPerKilobit);
}

void EncodeAACTask::finishFile() const
{
    if (sourceType() == C::FLAC) {
        topTextField()->setStringValue(u"Copying FLAC Tags"_s);
        handleFlacTags();
    } else {
        setEncoderTag();
    }
    optimizeFile();
}

OptionalText EncodeAACTask::getEncoderSettingsForTag() const
{
    const Mode* const row = modeOf(type_);
    return row ? OptionalText(row->text.arg(level_)) : std::nullopt;
}

void EncodeAACTask::handleFlacTags() const
{
    const auto tags = TagLibTagsHelper().tagsForFlacFile(fileName());
    if (const OptionalText settings = getEncoderSettingsForTag()) tags->setEncoderSettings(settings);
    writeTags(*tags);
}

void EncodeAACTask::setEncoderTag() const
{
    const OptionalText settings = getEncoderSettingsForTag();
    if (!settings) return;
    TagsObject tags;
    tags.setEncoderSettings(settings);
    writeTags(tags);
}

void EncodeAACTask::writeTags(const TagsObject& tags) const
{
    AACTagsHelper().writeTagsForFileTagObjectWriteEmptyTagsEncoding(outFile_, tags, false, true);
}

void EncodeAACTask::optimizeFile() const
{
    topTextField()->setStringValue(u"Making Gapless"_s);
    AACTagsHelper().makeGapless(outFile_);
}

} // namespace zolt
