// What every task is: flags, a title, results, and the four controls of its row in the panel.
#pragma once

#include "engine/ZOLTTaskResults.h"
#include "platform/controls/Button.h"
#include "platform/controls/Menu.h"
#include "platform/controls/ProgressIndicator.h"
#include "platform/controls/TextField.h"

#include <QStringList>

#include <atomic>
#include <memory>
#include <mutex>

namespace zolt {

class ChildProcess;
class ZOLTTaskQueue;

/// Who had a task queued.
struct TaskOrigin
{
    QString name;      ///< of the tab whose command it was; empty where nobody said
    QStringList files; ///< full paths: those that the command was pressed on
};

/// Runs nothing by itself: supplies the row, the flags, the bookkeeping at the end and the way of a cancel. A task is
/// queued once and run once. Operations may be called from any thread; flags are atomic, the rest lies under a mutex.
class ZOLTTask : public std::enable_shared_from_this<ZOLTTask>
{
public:
    virtual ~ZOLTTask();
    ZOLTTask(const ZOLTTask&) = delete;
    ZOLTTask& operator=(const ZOLTTask&) = delete;

    /// @param queue  outlives the task; nullptr for a task that reports to nobody
    static std::shared_ptr<ZOLTTask> initWithQueue(ZOLTTaskQueue* queue);

    /// Marks the row running, unless the task has ended. Must not end the task on the calling thread.
    virtual void startTask();
    /// Sets `cancelled`, then runs stopTask on the calling thread.
    virtual void cancelTask(Sender sender);
    /// The bookkeeping at the end: flags, the set, the row's outcome. Does not report to the queue: concrete tasks
    /// still have work between this and their report.
    virtual void stopTask(Sender sender);
    /// Ends the task after a fault that nobody caught, unless it has reported: `error` is set if nobody has cancelled
    /// it, the reason stands in the results, the row and the queue get their end once.
    void endAfterFault(const QString& reason);

    bool isActive() const { return active_; }
    bool isDone() const { return done_; }
    /// Neither started nor ended. `active` is read first, as markEnded() writes it last: a task that ends at this very
    /// moment is never taken for a waiting one.
    bool isWaiting() const { return !active_ && !done_; }
    /// Takes the row's four controls off their table.
    void hide();

    bool cancelled() const { return cancelled_; }
    void setCancelled(bool cancelled) { cancelled_ = cancelled; }
    bool error() const { return error_; }
    void setError(bool error) { error_ = error; }
    /// What the row shows while it runs, and what an output window is titled.
    QString title() const { return textOrEmpty(optionalTitle()); }
    /// As title(), absent while none was set.
    OptionalText optionalTitle() const { return get(title_); }
    virtual void setTitle(const QString& title) { put(title_, OptionalText(title)); }

    /// The text collector; empty once a task has nothing to report.
    std::shared_ptr<ZOLTTaskResults> results() const { return get(results_); }
    /// Puts another collector, often a shared one, in place of the present one; none drops it.
    void setResults(const std::shared_ptr<ZOLTTaskResults>& results) { put(results_, results); }

    /// The row's status line.
    std::shared_ptr<TextField> topTextField() const { return get(topTextField_); }
    void setTopTextField(const std::shared_ptr<TextField>& field) { put(topTextField_, field); }
    /// The row's name line.
    std::shared_ptr<TextField> textField() const { return get(textField_); }
    void setTextField(const std::shared_ptr<TextField>& field) { put(textField_, field); }
    /// The row's stop button.
    std::shared_ptr<Button> cancelButton() const { return get(cancelButton_); }
    void setCancelButton(const std::shared_ptr<Button>& button) { put(cancelButton_, button); }
    /// The row's bar, 0 to 100.
    std::shared_ptr<ProgressIndicator> progressIndicator() const { return get(progressIndicator_); }
    void setProgressIndicator(const std::shared_ptr<ProgressIndicator>& bar) { put(progressIndicator_, bar); }

    /// A stage of the work begins: one run of a tool, or one conversion in process. Its progress starts at 0. Any
    /// thread.
    void stageBegins();
    /// How many stages have begun.
    int stage() const { return stage_; }
    /// How many stages the work has where nothing fails; at least 1.
    virtual int stageCount() const { return 1; }

    /// Full path of the file that the task works on; empty where it works on none, or on several.
    virtual QString source() const { return {}; }

    /// What is queued behind the last task of a set is of that task's origin.
    TaskOrigin origin() const { return get(origin_); }
    void setOrigin(const TaskOrigin& origin) { put(origin_, origin); }

    /// Whether the source is deleted after success; of tasks that can delete.
    /// @throws InvalidArgumentException on a class that does not answer it
    virtual void setDeleteOriginal(bool deleteOriginal);

    /// The task in a log line.
    virtual QString description() const;

    /// The queue tells that the task has left its list of open tasks, and that it has left the panel. Once both have
    /// happened and nobody is inside the task any more, its results are let go, which breaks the ring between a task
    /// and its collector; `tasksInSet` keeps the task for the others of a set.
    void leftQueue();
    bool hasLeftQueue() const;
    void leftPanel();

    /// Held by whoever runs or ends a task, for as long as it does: the results are not let go meanwhile.
    class Hold
    {
    public:
        explicit Hold(std::shared_ptr<ZOLTTask> task);
        ~Hold();
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;

    private:
        std::shared_ptr<ZOLTTask> task_;
    };

protected:
    ZOLTTask();
    /// Set-up that needs the object itself: enters it in its own results and wires its stop button.
    void setUpWithQueue(ZOLTTaskQueue* queue);
    /// Stores the title and shows it, so that a waiting row has its name.
    void showTitle(const QString& title);
    /// Appends to the collector's first slot, if the task still has a collector.
    void appendResults(const OptionalText& text) const;
    /// Adds a line that people must see whatever came of the task: a report that was let go is begun anew. An absent
    /// line adds nothing. Before the base `stopTask` looks whether the set is done.
    void tellInReport(const OptionalText& line);
    /// Lets go of the results of a good end, but for a report that tellInReport has added to.
    void dropResults();
    /// Marks the row running: flags, stop button, bar. Does nothing if the task has ended.
    void markRunning();
    /// `active` set. @return false if the task has ended: it never goes back
    bool markActive();
    /// `active` cleared and `done` set.
    void markEnded();
    ZOLTTaskQueue* queue() const { return queue_; }
    /// A tool that failed sets `error`; what killed it is noted in the results.
    void readStatus(ChildProcess& tool);
    /// Reports to the queue, if there is one.
    void reportCompleted();
    /// The end after a fault, in the way of the task's family; `error` and the reason are set.
    virtual void finishAfterFault();

    mutable std::mutex mutex_; // guards pointers and texts, here and in the families; never held across a call out

    template <class Value> Value get(const Value& field) const
    {
        const std::lock_guard guard(mutex_);
        return field;
    }
    template <class Value> void put(Value& field, Value value)
    {
        const std::lock_guard guard(mutex_);
        std::swap(field, value);
    }

private:
    void markSetDone();
    void showOutcome();
    void letGoIfLeft();

    ZOLTTaskQueue* queue_ = nullptr;
    std::shared_ptr<ProgressIndicator> progressIndicator_;
    std::shared_ptr<Button> cancelButton_;
    std::shared_ptr<TextField> textField_;
    std::shared_ptr<TextField> topTextField_;
    std::shared_ptr<Menu> menu_; // kept: no row has one, the menu is the table's
    std::atomic<bool> active_ = false;
    std::atomic<bool> done_ = false;
    std::shared_ptr<ZOLTTaskResults> results_;
    std::atomic<bool> cancelled_ = false;
    std::atomic<bool> error_ = false;
    std::atomic<bool> reported_ = false;
    std::atomic<bool> mustBeSeen_ = false; // the report, whatever came of the task
    std::atomic<int> stage_ = 0;
    OptionalText title_;
    TaskOrigin origin_;

    int holds_ = 0;
    bool leftQueue_ = false;
    bool leftPanel_ = false;
};

} // namespace zolt
