#include "encode/EncodeFlacTask.h"

#include "engine/ConsoleGrammar.h"
#include "shell/Constants.h"
#include "tags/FlacTagHelper.h"
#include "tags/TagLibTagsHelper.h"

namespace zolt {

std::shared_ptr<EncodeFlacTask> EncodeFlacTask::initAsyncTaskWithFileNameQueueLaunchPathArguments(
    const QString& fileName, ZOLTTaskQueue* queue, const QString& launchPath, const QStringList& arguments)
{
    std::shared_ptr<EncodeFlacTask> task(new EncodeFlacTask);
    task->setUpAsyncTask(queue, launchPath, arguments);
    task->fileName_ = fileName;
    task->showTitle(path::lastComponent(fileName));
    return task;
}

void EncodeFlacTask::processTaskOutput(const OptionalText& output)
{
    ConsoleGrammar::flacEncode.follow(output, *this);
}

std::shared_ptr<TagsObject> EncodeFlacTask::getAiffTags() const
{
    return TagLibTagsHelper().tagsForAIFFFile(fileName_);
}

void EncodeFlacTask::cleanup()
{
    if (!error()) setResults(nullptr);
    const QString type = path::extension(fileName_).toUpper();
    if (type == Constants::AIFF || type == Constants::AIF) writeTags();
    removeSource(fileName_);
}

void EncodeFlacTask::writeTags()
{
    const auto tags = getAiffTags();
    if (!tags) return;
    topTextField()->setStringValue(QStringLiteral("Writing FLAC Tags"));
    FlacTagHelper().writeTagsForFileTagObjectWriteEmptyTags(arguments().last(), *tags, false);
}

} // namespace zolt
