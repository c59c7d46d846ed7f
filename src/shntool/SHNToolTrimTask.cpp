#include "shntool/SHNToolTrimTask.h"

namespace zolt {

using namespace Qt::StringLiterals;

std::shared_ptr<SHNToolTrimTask>
SHNToolTrimTask::initAsyncTaskWithQueueLaunchPathArguments(ZOLTTaskQueue* queue, const QString& launchPath,
                                                           const QStringList& arguments)
{
    std::shared_ptr<SHNToolTrimTask> task(new SHNToolTrimTask);
    task->setUpProgressTask(queue, launchPath, arguments, u"Running SHNTool Trim"_s);
    return task;
}

void SHNToolTrimTask::lookAtHead(const QString& text)
{
    for (const QString& operation : {u"Scanning"_s, u"Trimming"_s}) { // in this order: with both it is the latter
        if (text.contains(operation)) operation_ = operation;
    }
    if (const OptionalText name = showFileName(text, {{u"Trimming ["_s, u"Scanning ["_s}, u"]"_s})) fileName_ = *name;
}

} // namespace zolt
