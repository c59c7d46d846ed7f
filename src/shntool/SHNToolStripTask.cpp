#include "shntool/SHNToolStripTask.h"

namespace zolt {

using namespace Qt::StringLiterals;

std::shared_ptr<SHNToolStripTask>
SHNToolStripTask::initAsyncTaskWithQueueLaunchPathArguments(ZOLTTaskQueue* queue, const QString& launchPath,
                                                            const QStringList& arguments)
{
    std::shared_ptr<SHNToolStripTask> task(new SHNToolStripTask);
    task->setUpProgressTask(queue, launchPath, arguments, u"Running SHNTool Strip"_s);
    task->fileName_ = arguments.value(arguments.size() - 1);
    return task;
}

} // namespace zolt
