#include "engine/ZOLTThreadTask.h"

#include "engine/Log.h"
#include "platform/errors/Exceptions.h"
#include "platform/threads/DetachedThreads.h"

namespace zolt {

void ZOLTThreadTask::setUpThreadTask(ZOLTTaskQueue* queue)
{
    setUpWithQueue(queue);
    environment_ = childEnvironment();
}

void ZOLTThreadTask::startTask()
{
    // Set here already: until the thread gets to mark its row, the queue must not take the task for a waiting one.
    setActive(true);
    auto self = std::static_pointer_cast<ZOLTThreadTask>(shared_from_this());
    detachThread([self = std::move(self)] { self->runGuarded(); });
}

void ZOLTThreadTask::runGuarded()
{
    const Hold hold(shared_from_this());
    QString reason;
    try {
        return doStartTask();
    } catch (const PlatformException& fault) {
        reason = fault.reason();
    } catch (const std::exception& fault) {
        reason = QString::fromUtf8(fault.what());
    }
    qCCritical(engineLog, "%s: %s", qUtf8Printable(description()), qUtf8Printable(reason));
    endAfterFault(reason);
}

void ZOLTThreadTask::runTool(const QString& launchPath, const QStringList& arguments)
{
    const auto process = std::make_shared<ChildProcess>();
    const auto pipe = std::make_shared<Pipe>();
    process->setLaunchPath(launchPath);
    process->setArguments(arguments);
    process->setStandardOutputAndError(pipe);
    {
        const std::lock_guard guard(mutex_);
        setUnbufferedIO(environment_);
        process->setEnvironment(environment_);
        task_ = process;
    }
    process->launch();
    const auto handle = pipe->fileHandleForReading();
    // Whoever leaves the loop early leaves a tool that may still write.
    struct Drain
    {
        ChildProcess& process;
        ~Drain() { process.discardRemainingOutput(); }
    } const drain{*process};
    for (QByteArray piece = handle->availableData(); !piece.isEmpty() && !cancelled(); piece = handle->availableData()) {
        processTaskOutput(decodeUtf8(piece));
    }
}

void ZOLTThreadTask::waitForTool()
{
    const auto tool = process();
    if (!tool) return;
    tool->waitUntilExit();
    tool->terminate();
    if (!cancelled() && tool->terminationStatus() != 0) setError(true);
}

void ZOLTThreadTask::stopTask(Sender)
{
    const Hold hold(shared_from_this());
    waitForTool();
    setActive(false);
    setDone(true);
    ZOLTTask::stopTask(nullptr);
    if (!error()) setResults(nullptr);
    reportCompleted();
}

} // namespace zolt
