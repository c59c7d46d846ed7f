#include "shntool/SHNToolJoinTask.h"

namespace zolt {

using namespace Qt::StringLiterals;

std::shared_ptr<SHNToolJoinTask>
SHNToolJoinTask::initAsyncTaskWithQueueLaunchPathArguments(ZOLTTaskQueue* queue, const QString& launchPath,
                                                           const QStringList& arguments)
{
    std::shared_ptr<SHNToolJoinTask> task(new SHNToolJoinTask);
    task->setUpProgressTask(queue, launchPath, arguments, u"Joining Files"_s);
    return task;
}

void SHNToolJoinTask::lookAtHead(const QString& text)
{
    showFileName(text, {{u"Joining ["_s}, u"] ("_s});
}

} // namespace zolt
