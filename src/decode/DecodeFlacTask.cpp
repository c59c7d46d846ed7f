#include "decode/DecodeFlacTask.h"

#include "decode/FlacDecodeProgress.h"
#include "shell/Constants.h"
#include "shell/Util.h"
#include "tags/FlacTagHelper.h"
#include "tags/TagLibTagsHelper.h"

namespace zolt {

std::shared_ptr<DecodeFlacTask> DecodeFlacTask::initAsyncTaskWithFileNameQueueLaunchPathArguments(
    const QString& fileName, ZOLTTaskQueue* queue, const QString& launchPath, const QStringList& arguments)
{
    std::shared_ptr<DecodeFlacTask> task(new DecodeFlacTask);
    task->setUpAsyncTask(queue, launchPath, arguments);
    task->fileName_ = fileName;
    task->showTitle(path::lastComponent(fileName));
    return task;
}

void DecodeFlacTask::processTaskOutput(const OptionalText& output)
{
    ConsoleProgress progress;
    if (output) {
        const QString text = trimmed(*output, CharacterSet::WhiteSpaceAndNewlines);
        progress = flacDecodeProgress(text);
        if (progress.number)
            topTextField()->setStringValue(QStringLiteral("Decoding Flac: ") + *progress.number + u'%');
        appendResults(text);
    }
    progressIndicator()->setDoubleValue(progress.value);
    textField()->setStringValue(title());
}

std::shared_ptr<TagsObject> DecodeFlacTask::getFlacTags() const
{
    return FlacTagHelper().tagsForFile(fileName_);
}

void DecodeFlacTask::cleanup()
{
    if (!error()) setResults(nullptr);
    const QString& output = arguments().last();
    if (path::extension(output).toUpper() == Constants::AIFF &&
        path::extension(fileName_).toUpper() == Constants::FLAC) {
        copyTags(output);
    }
    if (deleteOriginal() && !cancelled() && !error()) Util::deleteFile(fileName_);
}

void DecodeFlacTask::copyTags(const QString& output)
{
    const auto tags = getFlacTags();
    if (!tags) return;
    topTextField()->setStringValue(QStringLiteral("Copying FLAC Tags"));
    if (path::extension(output) == u"aiff") TagLibTagsHelper().writeTagsForAIFFFileTagObject(output, *tags);
}

} // namespace zolt
