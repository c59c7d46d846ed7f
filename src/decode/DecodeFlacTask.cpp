#include "decode/DecodeFlacTask.h"

#include "engine/ConsoleGrammar.h"
#include "shell/Constants.h"
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
    ConsoleGrammar::flacDecode.follow(output, *this);
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
    deleteSource(fileName_);
}

void DecodeFlacTask::copyTags(const QString& output)
{
    const auto tags = getFlacTags();
    if (!tags) return;
    topTextField()->setStringValue(QStringLiteral("Copying FLAC Tags"));
    // Kept: tags that find no room are told in the log alone.
    if (path::extension(output) == u"aiff") TagLibTagsHelper().writeTagsForAIFFFileTagObject(output, *tags);
}

} // namespace zolt
