#include "shntool/SHNToolSplitTask.h"

#include "engine/ConsoleGrammar.h"
#include "platform/errors/Exceptions.h"
#include "platform/files/Files.h"
#include "shntool/ShntoolLog.h"

namespace zolt {

using namespace Qt::StringLiterals;

std::shared_ptr<SHNToolSplitTask>
SHNToolSplitTask::initAsyncTaskWithQueueLaunchPathArguments(ZOLTTaskQueue* queue, const QString& launchPath,
                                                            const QStringList& arguments)
{
    std::shared_ptr<SHNToolSplitTask> task(new SHNToolSplitTask);
    task->setUpAsyncTask(queue, launchPath, arguments);
    return task;
}

void SHNToolSplitTask::processTaskOutput(const OptionalText& output)
{
    if (!output) return;
    try {
        ConsoleGrammar::shntoolSplit.follow(output, *this);
    } catch (const PlatformException& fault) {
        qCWarning(shntoolLog, "exception %s", fault.what());
        textField()->setStringValue(title());
        topTextField()->setStringValue(u"Splitting: ? %"_s);
    }
}

void SHNToolSplitTask::cleanup()
{
    for (const auto& [piece, name] : trackTitleMap_.asKeyValueRange()) {
        if (name == piece) continue;
        moveItem(path::appendingComponent(outputPath_, piece), path::appendingComponent(outputPath_, name));
    }
    if (!error()) setResults(nullptr);
}

} // namespace zolt
