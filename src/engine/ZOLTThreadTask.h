// The blocking form: a task that does its work on a detached thread of its own and drives its tools with blocking
// reads.
#pragma once

#include "engine/ZOLTTask.h"
#include "platform/process/ChildProcess.h"
#include "platform/process/Environment.h"

#include <QStringList>

#include <functional>

namespace zolt {

/// One run of a tool.
struct ToolCall
{
    /// What ends the reading before the tool closes its output; looked at behind each read, whose piece is dropped
    /// then.
    enum class StopAt { Nothing, Cancel, CancelOrError };
    /// What happens behind the reading, before runTool returns.
    enum class Afterwards {
        Nothing,
        Terminate,
        WaitAndTerminate,
        WaitForAllAndTerminate ///< also, after a cancel, for what the tool has started and left behind
    };

    QString tool; ///< its name in the tools directory, or a full path
    QStringList arguments;
    QString directory = {}; ///< working directory; empty for this program's own
    /// Gets each piece, absent where its bytes are not valid UTF-8; none for the task's own processTaskOutput.
    std::function<void(const OptionalText&)> parser = {};
    StopAt stopAt = StopAt::Cancel;
    Afterwards afterwards = Afterwards::Nothing;
};

/// How a thread task stops: the steps of its stopTask that differ from one class to the next, in their order.
struct ThreadEnd
{
    enum class Waits {
        ForTool,   ///< for the tool's own end, then terminates it
        Terminate, ///< does not wait: a cancel ends the tool
        No
    };
    enum class Drops {
        BehindRow,  ///< the results of a good end go once the row shows it: the set is marked done
        AheadOfRow, ///< they go before: no set is marked, nothing follows
        Never       ///< they are a report
    };
    enum class Reports {
        AtEachStop, ///< a cancel and the thread both report to the queue
        ByThread    ///< once, when the thread's work is over; a cancel shows on the row alone
    };

    Waits waits = Waits::ForTool;
    bool readsStatus = true;  ///< the tool's exit status sets `error`, unless cancelled
    bool runsCleanup = false; ///< the hook runs between the flags and the row's outcome
    Drops drops = Drops::BehindRow;
    Reports reports = Reports::AtEachStop;

    bool looksAtTool() const { return waits != Waits::No || readsStatus; }
};

/// Concrete tasks fill in doStartTask, which calls beginRow, does the work with runTool and other blocking calls, calls
/// stopTask, and does what must come after the row has changed. Their way of stopping is a ThreadEnd.
class ZOLTThreadTask : public ZOLTTask
{
public:
    /// Detaches a thread on doStartTask and returns at once; starts nothing if the task has ended before.
    void startTask() override;
    /// Ends the task as its ThreadEnd says.
    void stopTask(Sender sender) override;

    /// Hook at the end. May run twice after a cancel, on two threads, but one after the other.
    virtual void cleanup() {}
    /// Hook for each piece that a tool writes, where its call names no parser. On the task's own thread.
    virtual void processTaskOutput(const OptionalText& output);

    /// PATH of the tools that are started from here on becomes itself, ":" and the text.
    void appendToPATH(const QString& directory);

    /// Runs one tool and hands on its output, completed by the tool's dialect, until the reading ends. What the tool
    /// writes after that is thrown away while its end is waited for. On the task's own thread.
    /// @throws PlatformException if it cannot be started
    void runTool(const ToolCall& call);

protected:
    explicit ZOLTThreadTask(const ThreadEnd& end = {}) : end_(end) {}
    void setUpThreadTask(ZOLTTaskQueue* queue);

    /// The whole of the work. On the task's own thread.
    virtual void doStartTask() = 0;

    /// Marks the row running and shows the title.
    void beginRow() { ZOLTTask::startTask(); }

    /// The process of the last runTool; none before its launch, and none after its end was waited for.
    std::shared_ptr<ChildProcess> process() const { return get(task_); }
    /// Whether a tool has run and its end was waited for, by a cancel or by the thread: what it wrote may be touched.
    /// Of tasks that wait for their tool.
    bool toolHasEnded() const { return toolHasEnded_; }
    Environment environment() const { return get(environment_); }

    void finishAfterFault() override;
    /// It ended before its thread could begin, which then never does.
    bool hasNeverBegun() const { return phase_ == Phase::EndedBefore; }

private:
    /// A thread begins its work or the task ends before that, whichever comes first.
    enum class Phase { Waiting, Begun, EndedBefore };

    void run();
    void guardedWork();
    bool moveTo(Phase phase);
    std::shared_ptr<ChildProcess> launched(const ToolCall& call);
    void readOutput(ChildProcess& tool, const ToolCall& call);
    bool stopsAt(ToolCall::StopAt stopAt) const;
    void finish(ChildProcess& tool, ToolCall::Afterwards afterwards) const;
    void letToolGo();
    void endTool();
    void runCleanup();

    const ThreadEnd end_;
    std::atomic<Phase> phase_ = Phase::Waiting;
    std::atomic<bool> toolHasEnded_ = false;
    std::mutex cleanup_; // held while the hook runs
    Environment environment_;
    std::shared_ptr<ChildProcess> task_;
};

} // namespace zolt
