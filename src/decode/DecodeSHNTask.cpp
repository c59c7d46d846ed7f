#include "decode/DecodeSHNTask.h"

#include "encode/ShntoolConversion.h"
#include "engine/ConsoleGrammar.h"

namespace zolt {

std::shared_ptr<DecodeSHNTask> DecodeSHNTask::initAsyncTaskWithQueueLaunchPathArguments(ZOLTTaskQueue* queue,
                                                                                        const QString& launchPath,
                                                                                        const QStringList& arguments)
{
    const QString source = shntool::sourceOf(arguments);
    std::shared_ptr<DecodeSHNTask> task(new DecodeSHNTask);
    task->setUpAsyncTask(queue, launchPath, arguments);
    task->fileName_ = source;
    task->showTitle(path::lastComponent(source));
    return task;
}

void DecodeSHNTask::processTaskOutput(const OptionalText& output)
{
    ConsoleGrammar::shnDecode.follow(output, *this);
}

void DecodeSHNTask::cleanup()
{
    if (!error()) setResults(nullptr);
    deleteSource(fileName_);
}

} // namespace zolt
