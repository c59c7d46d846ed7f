#include "engine/ZOLTThreadTask.h"

#include "engine/Log.h"
#include "engine/console/ConsoleDialect.h"
#include "platform/desktop/ToolsDirectory.h"
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
    markActive();
    if (phase_ == Phase::EndedBefore) return markEnded(); // cancelled since the queue chose it
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
    guardedWork();
    if (end_.reports == ThreadEnd::Reports::ByThread) reportCompleted();
}

void ZOLTThreadTask::guardedWork()
{
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

void ZOLTThreadTask::appendToPATH(const QString& directory)
{
    const std::lock_guard guard(mutex_);
    appendDirectoryToPath(environment_, directory);
}

void ZOLTThreadTask::processTaskOutput(const OptionalText& output)
{
    appendResults(output);
}

void ZOLTThreadTask::runTool(const ToolCall& call)
{
    if (const auto previous = process()) previous->waitUntilExit(); // also one whose output was left early
    stageBegins();
    const auto tool = launched(call);
    try {
        readOutput(*tool, call);
    } catch (...) {
        tool->waitUntilExit(); // whoever catches this must not meet the tool at work
        throw;
    }
    finish(*tool, call.afterwards);
    if (!end_.looksAtTool()) letToolGo();
}

void ZOLTThreadTask::finish(ChildProcess& tool, ToolCall::Afterwards afterwards) const
{
    using Afterwards = ToolCall::Afterwards;
    if (afterwards == Afterwards::Nothing) return;
    if (afterwards == Afterwards::WaitForAllAndTerminate && cancelled())
        tool.waitForAll();
    else if (afterwards != Afterwards::Terminate)
        tool.waitUntilExit();
    tool.terminate();
}

void ZOLTThreadTask::letToolGo()
{
    process()->waitUntilExit(); // nobody else will: the next step must not meet it at work
    put(task_, std::shared_ptr<ChildProcess>());
}

std::shared_ptr<ChildProcess> ZOLTThreadTask::launched(const ToolCall& call)
{
    const QString path = call.tool.contains(u'/') ? call.tool : toolPath(call.tool);
    std::shared_ptr<ChildProcess> tool;
    {
        const std::lock_guard guard(mutex_);
        tool = ChildProcess::withPipe(path, call.arguments, environment_, call.directory);
    }
    tool->launch();
    put(task_, tool); // not before: a cancel in between would take it for one that has ended, and nobody would wait
    // One that came before could not end it.
    if (end_.waits == ThreadEnd::Waits::Terminate && cancelled()) tool->terminate();
    return tool;
}

void ZOLTThreadTask::readOutput(ChildProcess& tool, const ToolCall& call)
{
    // Whoever leaves the loop early leaves a tool that may still write.
    struct Drain
    {
        ChildProcess& tool;
        ~Drain() { tool.discardRemainingOutput(); }
    } const drain{tool};
    const auto hand = [&](const QByteArray& bytes) {
        if (bytes.isEmpty()) return;
        const OptionalText text = decodeUtf8(bytes);
        call.parser ? call.parser(text) : processTaskOutput(text);
    };
    const auto dialect = dialectFor(call.tool, call.arguments);
    const auto handle = tool.standardOutput()->fileHandleForReading();
    for (QByteArray piece = handle->availableData(); !piece.isEmpty(); piece = handle->availableData()) {
        if (stopsAt(call.stopAt)) return;
        hand(dialect->complete(piece));
    }
    hand(dialect->rest());
}

bool ZOLTThreadTask::stopsAt(ToolCall::StopAt stopAt) const
{
    if (stopAt == ToolCall::StopAt::Nothing) return false;
    return cancelled() || (stopAt == ToolCall::StopAt::CancelOrError && error());
}

void ZOLTThreadTask::endTool()
{
    using Waits = ThreadEnd::Waits;
    const auto tool = end_.looksAtTool() ? process() : nullptr;
    if (!tool) return;
    if (end_.waits == Waits::ForTool) {
        tool->waitUntilExit();
        toolHasEnded_ = true;
    }
    if (end_.waits != Waits::No) tool->terminate();
    if (end_.readsStatus && !cancelled()) readStatus(*tool);
    const std::lock_guard guard(mutex_);
    if (task_ == tool) task_.reset(); // the row may stay for hours: it must not keep descriptors open
}

void ZOLTThreadTask::stopTask(Sender)
{
    const Hold hold(shared_from_this());
    const bool neverBegan = moveTo(Phase::EndedBefore) || hasNeverBegun();
    endTool();
    markEnded();
    if (end_.runsCleanup) runCleanup();
    if (end_.drops == ThreadEnd::Drops::AheadOfRow) dropResults();
    ZOLTTask::stopTask(nullptr);
    if (end_.drops == ThreadEnd::Drops::BehindRow) dropResults();
    if (neverBegan || end_.reports == ThreadEnd::Reports::AtEachStop) reportCompleted();
}

void ZOLTThreadTask::runCleanup()
{
    // A cancel and the thread may come here together: no file is to be written by both at once.
    const std::lock_guard guard(cleanup_);
    guarded("cleanup", [this] { cleanup(); });
}

void ZOLTThreadTask::finishAfterFault()
{
    stopTask(nullptr);
}

} // namespace zolt
