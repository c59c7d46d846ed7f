#include "engine/ZOLTAsyncNSTaskFileOutputRedirection.h"

#include "platform/files/Files.h"

namespace zolt {

std::shared_ptr<ZOLTAsyncNSTaskFileOutputRedirection>
ZOLTAsyncNSTaskFileOutputRedirection::initWithFileNameQueueLaunchPathArguments(const QString& fileName,
                                                                               ZOLTTaskQueue* queue,
                                                                               const QString& launchPath,
                                                                               const QStringList& arguments)
{
    std::shared_ptr<ZOLTAsyncNSTaskFileOutputRedirection> task(new ZOLTAsyncNSTaskFileOutputRedirection);
    task->setUpRedirection(fileName, queue, launchPath, arguments);
    return task;
}

void ZOLTAsyncNSTaskFileOutputRedirection::setUpRedirection(const QString& fileName, ZOLTTaskQueue* queue,
                                                            const QString& launchPath, const QStringList& arguments)
{
    setUpAsyncTask(queue, launchPath, arguments);
    fileName_ = fileName;
}

void ZOLTAsyncNSTaskFileOutputRedirection::showStart()
{
    textField()->setStringValue(title());
    if (const OptionalText text = subTitle()) topTextField()->setStringValue(*text);
}

void ZOLTAsyncNSTaskFileOutputRedirection::stopTask(Sender sender)
{
    const auto collector = results();
    const OptionalText text = collector ? OptionalText(collector->results()) : std::nullopt;
    setResults(nullptr);
    ZOLTAsyncNSTask::stopTask(sender);
    if (text) writeTextAtomically(fileName_, *text);
}

} // namespace zolt
