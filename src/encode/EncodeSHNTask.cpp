#include "encode/EncodeSHNTask.h"

#include "encode/ShntoolConversion.h"
#include "engine/ConsoleGrammar.h"

namespace zolt {

std::shared_ptr<EncodeSHNTask>
EncodeSHNTask::initAsyncTaskWithQueueLaunchPathArgumentsWithResults(ZOLTTaskQueue* queue, const QString& launchPath,
                                                                    const QStringList& arguments,
                                                                    const std::shared_ptr<ZOLTTaskResults>& results)
{
    std::shared_ptr<EncodeSHNTask> task(new EncodeSHNTask);
    task->fileName_ = shntool::sourceOf(arguments); // may throw: before the task and its results hold each other
    task->setUpAsyncTask(queue, launchPath, arguments);
    task->setResults(results);
    task->showTitle(path::lastComponent(task->fileName_));
    return task;
}

void EncodeSHNTask::processTaskOutput(const OptionalText& output)
{
    ConsoleGrammar::shnEncode.follow(output, *this);
}

void EncodeSHNTask::cleanup()
{
    deleteSource(fileName_);
}

void EncodeSHNTask::finalCleanup()
{
    if (!error()) setResults(nullptr);
}

} // namespace zolt
