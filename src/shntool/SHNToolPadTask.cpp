#include "shntool/SHNToolPadTask.h"

namespace zolt {

std::shared_ptr<SHNToolPadTask> SHNToolPadTask::initAsyncTaskWithQueueLaunchPathArguments(ZOLTTaskQueue* queue,
                                                                                          const QString& launchPath,
                                                                                          const QStringList& arguments)
{
    constexpr qsizetype fileAt = 7;
    const QString file = pieceAt(arguments, fileAt), name = path::lastComponent(file);
    std::shared_ptr<SHNToolPadTask> task(new SHNToolPadTask);
    task->setUpProgressTask(queue, launchPath, arguments, name);
    task->fileName_ = file;
    task->setTitle(name);
    return task;
}

} // namespace zolt
