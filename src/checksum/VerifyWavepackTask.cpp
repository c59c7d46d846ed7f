#include "checksum/VerifyWavepackTask.h"

namespace zolt {

std::shared_ptr<VerifyWavepackTask> VerifyWavepackTask::initVerifyWavepackTaskWithResultsQueueLaunchPathArguments(
    const std::shared_ptr<ZOLTTaskResults>& results, ZOLTTaskQueue* queue, const QString& launchPath,
    const QStringList& arguments)
{
    std::shared_ptr<VerifyWavepackTask> task(new VerifyWavepackTask);
    task->setUpVerification(results, queue, launchPath, arguments, 1);
    return task;
}

} // namespace zolt
