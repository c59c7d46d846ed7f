// The blocking form: a task that does its work on a detached thread of its own and drives its tools with blocking
// reads.
#pragma once

#include "engine/ZOLTTask.h"
#include "platform/process/ChildProcess.h"
#include "platform/process/Environment.h"

#include <QStringList>

namespace zolt {

/// Concrete tasks fill in doStartTask, which calls beginRow, does the work with runTool and other blocking calls, calls
/// stopTask, and does what must come after the row has changed.
class ZOLTThreadTask : public ZOLTTask
{
public:
    /// Detaches a thread on doStartTask and returns at once.
    void startTask() override;
    /// Waits for the tool's own end, sets `error` from its status unless cancelled, ends the row, keeps the results of
    /// a failure alone, and reports to the queue.
    void stopTask(Sender sender) override;

protected:
    ZOLTThreadTask() = default;
    void setUpThreadTask(ZOLTTaskQueue* queue);

    /// The whole of the work. On the task's own thread.
    virtual void doStartTask() = 0;
    /// Hook for each piece that a tool writes; absent where the bytes are not valid UTF-8. On the task's own thread.
    virtual void processTaskOutput(const OptionalText& output) = 0;

    /// Marks the row running and shows the title.
    void beginRow() { ZOLTTask::startTask(); }

    /// Runs one tool, handing each piece of its output to processTaskOutput, until it closes its output or the task is
    /// cancelled. A cancel is seen when the tool next writes, and that piece is dropped; what follows is thrown away
    /// while the end is waited for. Does not wait for the tool's exit. @throws PlatformException if it cannot be
    /// started
    void runTool(const QString& launchPath, const QStringList& arguments);

    /// The process of the last runTool; none before, and none after its end was waited for.
    std::shared_ptr<ChildProcess> process() const { return get(task_); }
    /// Waits for the last tool's end and sets `error` if its status is not 0, unless cancelled.
    void waitForTool();
    Environment environment() const { return get(environment_); }
    void setEnvironment(const Environment& environment) { put(environment_, environment); }

    void finishAfterFault() override { stopTask(nullptr); }

private:
    /// A thread begins its work or the task ends before that, whichever comes first.
    enum class Phase { Waiting, Begun, EndedBefore };

    void run();
    bool moveTo(Phase phase);

    std::atomic<Phase> phase_ = Phase::Waiting;
    Environment environment_;
    std::shared_ptr<ChildProcess> task_;
};

} // namespace zolt
