#include "checksum/VerifyTTATask.h"

namespace zolt {

std::shared_ptr<VerifyTTATask>
VerifyTTATask::initVerifyTTATaskWithResultsQueueLaunchPathArguments(const std::shared_ptr<ZOLTTaskResults>& results,
                                                                    ZOLTTaskQueue* queue, const QString& launchPath,
                                                                    const QStringList& arguments)
{
    std::shared_ptr<VerifyTTATask> task(new VerifyTTATask);
    task->setUpVerification(results, queue, launchPath, arguments, 1);
    return task;
}

} // namespace zolt
