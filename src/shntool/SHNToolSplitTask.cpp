#include "shntool/SHNToolSplitTask.h"

#include "engine/ConsoleGrammar.h"
#include "platform/files/Files.h"

namespace zolt {

std::shared_ptr<SHNToolSplitTask>
SHNToolSplitTask::initAsyncTaskWithQueueLaunchPathArguments(ZOLTTaskQueue* queue, const QString& launchPath,
                                                            const QStringList& arguments)
{
    std::shared_ptr<SHNToolSplitTask> task(new SHNToolSplitTask);
    task->setUpAsyncTask(queue, launchPath, arguments);
    return task;
}

void SHNToolSplitTask::processTaskOutput(const OptionalText& output)
{
    if (output) ConsoleGrammar::shntoolSplit.follow(output, *this);
}

void SHNToolSplitTask::cleanup()
{
    for (const auto& [piece, name] : trackTitleMap_.asKeyValueRange()) {
        const QString target = path::appendingComponent(outputPath_, name);
        if (name != piece && !exists(target)) renameItem(path::appendingComponent(outputPath_, piece), target);
    }
    if (!error()) setResults(nullptr);
}

} // namespace zolt
