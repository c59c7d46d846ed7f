#include "encode/EncodeSHNToFlacTask.h"

#include "encode/ShntoolConversion.h"
#include "engine/ConsoleGrammar.h"
#include "shell/Constants.h"
#include "tags/TagLibTagsHelper.h"

namespace zolt {

std::shared_ptr<EncodeSHNToFlacTask>
EncodeSHNToFlacTask::initAsyncTaskWithQueueLaunchPathArgumentsType(ZOLTTaskQueue* queue, const QString& launchPath,
                                                                   const QStringList& arguments, const QString& type)
{
    std::shared_ptr<EncodeSHNToFlacTask> task(new EncodeSHNToFlacTask);
    task->fileName_ = shntool::sourceOf(arguments); // may throw: before the task and its results hold each other
    task->outputPath_ = pieceAt(arguments, 6);
    task->type_ = type;
    task->setUpAsyncTask(queue, launchPath, arguments);
    task->showTitle(path::lastComponent(task->fileName_));
    return task;
}

void EncodeSHNToFlacTask::processTaskOutput(const OptionalText& output)
{
    ConsoleGrammar::shnToFlac.follow(output, *this, type_);
}

std::shared_ptr<TagsObject> EncodeSHNToFlacTask::getApeTags() const
{
    return TagLibTagsHelper().tagsForAPEFile(fileName_);
}

void EncodeSHNToFlacTask::cleanup()
{
    if (!error()) setResults(nullptr);
    if (path::extension(fileName_).toUpper() == Constants::APE) writeTags();
    removeSource(fileName_);
}

void EncodeSHNToFlacTask::writeTags()
{
    const auto tags = getApeTags();
    if (!tags) return;
    topTextField()->setStringValue(QStringLiteral("Writing FLAC Tags"));
    const QString output = path::inFolderWithExtension(fileName_, outputPath_, QStringLiteral("flac"));
    tellInReport(TagLibTagsHelper().writeTagsForFLACFileTagObjectWriteEmptyTags(output, *tags, false));
}

} // namespace zolt
