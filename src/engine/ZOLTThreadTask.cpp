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
    detachThread([self = std::move(self)] { self->run(); });
}

bool ZOLTThreadTask::moveTo(Phase phase)
{
    Phase waiting = Phase::Waiting;
    return phase_.compare_exchange_strong(waiting, phase);
}

void ZOLTThreadTask::run()
{
    if (!moveTo(Phase::Begun)) return; // cancelled and reported before the thread got here
    const Hold hold(shared_from_this());
    QString reason;
    try {
        return doStartTask();
    } catch (const PlatformException& fault) {
        reason = fault.reason();
    } catch (const std::exception& fault) {
        reason = QString::fromUtf8(fault.what());
    } catch (...) {
        reason = QStringLiteral("an exception of unknown kind");
    }
    qCCritical(engineLog, "%s: %s", qUtf8Printable(description()), qUtf8Printable(reason));
    endAfterFault(reason);
}

void ZOLTThreadTask::runTool(const QString& launchPath, const QStringList& arguments)
{
    if (const auto previous = process()) previous->waitUntilExit(); // also one whose output was left early
    std::shared_ptr<ChildProcess> tool;
    {
        const std::lock_guard guard(mutex_);
        tool = task_ = ChildProcess::withPipe(launchPath, arguments, environment_);
    }
    tool->launch();
    const auto handle = tool->standardOutput()->fileHandleForReading();
    // Whoever leaves the loop early leaves a tool that may still write.
    struct Drain
    {
        ChildProcess& tool;
        ~Drain() { tool.discardRemainingOutput(); }
    } const drain{*tool};
    for (QByteArray piece = handle->availableData(); !piece.isEmpty() && !cancelled();
         piece = handle->availableData()) {
        processTaskOutput(decodeUtf8(piece));
    }
}

void ZOLTThreadTask::waitForTool()
{
    const auto tool = process();
    if (!tool) return;
    if (tool->waitUntilExit()) tool->terminate();
    if (!cancelled() && tool->terminationStatus() != 0) setError(true);
    const std::lock_guard guard(mutex_);
    if (task_ == tool) task_.reset(); // the row may stay for hours: it must not keep descriptors open
}

void ZOLTThreadTask::stopTask(Sender)
{
    const Hold hold(shared_from_this());
    moveTo(Phase::EndedBefore); // has no effect on a thread at work
    waitForTool();
    setActive(false);
    setDone(true);
    ZOLTTask::stopTask(nullptr);
    if (!error()) setResults(nullptr);
    reportCompleted();
}

} // namespace zolt
