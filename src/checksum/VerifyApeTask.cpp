#include "checksum/VerifyApeTask.h"

#include "checksum/ConsoleTail.h"

namespace zolt {

std::shared_ptr<VerifyApeTask>
VerifyApeTask::initVerifyApeTaskWithResultsQueueLaunchPathArguments(const std::shared_ptr<ZOLTTaskResults>& results,
                                                                    ZOLTTaskQueue* queue, const QString& launchPath,
                                                                    const QStringList& arguments)
{
    std::shared_ptr<VerifyApeTask> task(new VerifyApeTask);
    task->setUpVerification(results, queue, launchPath, arguments, 0);
    return task;
}

void VerifyApeTask::processTaskOutput(const OptionalText& output)
{
    const ConsoleReading reading = grammar().read(output);
    grammar().show(reading, *this);
    singleResult_ += reading.text;
}

void VerifyApeTask::cleanup()
{
    appendResults(apeClosingWords(singleResult_, title()));
}

} // namespace zolt
