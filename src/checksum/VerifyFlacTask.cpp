#include "checksum/VerifyFlacTask.h"

#include "checksum/ConsoleTail.h"

namespace zolt {

std::shared_ptr<VerifyFlacTask>
VerifyFlacTask::initVerifyFlacTaskWithResultsQueueLaunchPathArguments(const std::shared_ptr<ZOLTTaskResults>& results,
                                                                      ZOLTTaskQueue* queue, const QString& launchPath,
                                                                      const QStringList& arguments)
{
    std::shared_ptr<VerifyFlacTask> task(new VerifyFlacTask);
    task->setUpVerification(results, queue, launchPath, arguments, 1);
    task->fileName_ = task->title();
    return task;
}

void VerifyFlacTask::stopTask(Sender sender)
{
    if (cancelled()) singleResult_ += fileName_ + QStringLiteral(" canceled\n");
    VerifyToolTask::stopTask(sender);
}

void VerifyFlacTask::processTaskOutput(const OptionalText& output)
{
    const ConsoleReading reading = grammar().read(output);
    grammar().show(reading, *this);
    textField()->setStringValue(fileName_);
    singleResult_ += reading.text + u'\n';
}

void VerifyFlacTask::cleanup()
{
    if (const auto report = results()) report->appendResultsForTask(flacClosingWords(singleResult_), this);
}

} // namespace zolt
