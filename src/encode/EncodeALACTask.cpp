#include "encode/EncodeALACTask.h"

#include "platform/audio/AudioFormat.h"
#include "shell/Constants.h"
#include "shell/Util.h"
#include "tags/AACTagsHelper.h"
#include "tags/TagLibTagsHelper.h"

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

/// A source that a tool decodes first.
struct Decoding
{
    QString type; ///< the extension in upper case
    QString status;
    QString (StagedWav::*convert)(const QString& source);
};

/// None for a source that goes to the audio service as it is.
const Decoding* decodingOf(const QString& type)
{
    static const std::vector<Decoding> decodings{
        {Constants::SHN, u"Decoding SHN to Wav"_s, &StagedWav::convertSHNToWav},
        {Constants::FLAC, u"Decoding FLAC to Wav"_s, &StagedWav::convertFLACToWav},
        {Constants::APE, u"Decoding APE to Wav"_s, &StagedWav::convertAPEToWav},
    };
    const auto row =
        std::find_if(decodings.begin(), decodings.end(), [&](const auto& each) { return each.type == type; });
    return row == decodings.end() ? nullptr : &*row;
}

} // namespace

EncodeALACTask::EncodeALACTask()
    : DeletingTask<StagedWav>(
          {.waits = ThreadEnd::Waits::No, .readsStatus = false, .drops = ThreadEnd::Drops::AheadOfRow})
{
}

std::shared_ptr<EncodeALACTask> EncodeALACTask::initEncodeTaskWithQueueFileNameOutputPath(ZOLTTaskQueue* queue,
                                                                                          const QString& fileName,
                                                                                          const QString& outputPath)
{
    std::shared_ptr<EncodeALACTask> task(new EncodeALACTask);
    task->setUpStaged(queue, fileName, outputPath);
    return task;
}

int EncodeALACTask::stageCount() const
{
    return decodingOf(sourceType()) ? 2 : 1;
}

void EncodeALACTask::doStartTask()
{
    beginRow();
    topTextField()->setStringValue(u"Encoding to Apple Lossless"_s);
    doEncodeCall();
    if (!error()) {
        if (sourceType() == Constants::FLAC) {
            topTextField()->setStringValue(u"Copying FLAC Tags"_s);
            handleFlacTags();
        } else {
            setEncoderTag();
        }
        optimizeFile(outFile_);
    }
    stopTask(nullptr);
    deleteSource(fileName());
}

void EncodeALACTask::doEncodeCall()
{
    QString temporary;
    if (const Decoding* const decoding = decodingOf(sourceType())) {
        topTextField()->setStringValue(decoding->status);
        temporary = (this->*decoding->convert)(fileName());
    }
    outFile_ = outputFile(u"m4a"_s);
    convert(temporary.isEmpty() ? fileName() : temporary, outFile_, formatId::AppleLossless, fileTypeId::M4a);
    if (!temporary.isEmpty() && !cancelled()) Util::deleteFile(temporary);
}

void EncodeALACTask::processSHNToWavTaskOutput(const OptionalText& output)
{
    ConsoleGrammar::shnToWavEncoding.follow(output, *this);
}

void EncodeALACTask::setEncoderTag() const
{
    AACTagsHelper().writeTagsForFileTagObjectWriteEmptyTagsEncoding(outFile_, TagsObject(), false, true);
}

void EncodeALACTask::handleFlacTags() const
{
    const auto tags = TagLibTagsHelper().tagsForFlacFile(fileName());
    AACTagsHelper().writeTagsForFileTagObjectWriteEmptyTagsEncoding(outFile_, *tags, false, true);
}

void EncodeALACTask::optimizeFile(const QString& path) const
{
    topTextField()->setStringValue(u"Making gapless"_s);
    AACTagsHelper().makeGapless(path);
}

} // namespace zolt
