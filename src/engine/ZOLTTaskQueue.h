// The one queue of the application.
#pragma once

#include "engine/OutputWindowController.h"
#include "engine/StatusQueueCell.h"
#include "engine/ZOLTTask.h"
#include "platform/controls/Table.h"
#include "platform/controls/Window.h"
#include "platform/text/Text.h"
#include "platform/threads/Lock.h"
#include "platform/threads/NotificationCenter.h"

#include <QPointF>

#include <atomic>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <unordered_set>
#include <utility>
#include <vector>

namespace zolt {

class TaskListener;
class ZOLTController;

/// Keeps the tasks that have still to end and the rows of the panel, starts tasks up to a limit, and opens output
/// windows. addTask comes from the main thread; taskCompleted comes from the main thread or from a task's own.
class ZOLTTaskQueue : public TableDataSource
{
public:
    using TaskPointer = std::shared_ptr<ZOLTTask>;
    using Tasks = std::vector<TaskPointer>;

    /// Loads the interface "StatusQueue" with the queue as owner; the limit comes from the default `maxThreads`.
    ZOLTTaskQueue();
    ~ZOLTTaskQueue() override;
    ZOLTTaskQueue(const ZOLTTaskQueue&) = delete;
    ZOLTTaskQueue& operator=(const ZOLTTaskQueue&) = delete;

    /// As the constructor; the queue also follows ZOLTMaxThreadsChangedNotification from any sender.
    static std::unique_ptr<ZOLTTaskQueue> initWithController(ZOLTController* controller);

    /// The limit becomes the notification's number; running and waiting tasks are left alone.
    void maxThreadsChanged(const Notification& notification);

    /// Appends the task and its row, and starts it if the limit allows. What the task's start throws goes to the caller
    /// and leaves `lock` held, so that whoever comes next waits: tools are looked up before a command is pressed.
    void addTask(const TaskPointer& task);
    /// addTask for each, in order.
    void addTasks(const Tasks& tasks);
    /// The seam for all starting.
    virtual void startTask(const TaskPointer& task);
    /// A task reports its end. A second report of one task is logged and survived; it costs one of `activeTask`.
    void taskCompleted(const TaskPointer& task);

    qsizetype numberOfRowsInTableView() const override;
    /// No text: the row draws from its controls only.
    QString tableViewObjectValueForTableColumnRow(int column, qsizetype row) const override;
    /// Gives the cell the four controls of the row and puts them on the table. Main thread.
    void tableViewWillDisplayCellForTableColumnRow(StatusQueueCell& cell, qsizetype row);

    /// The task of a row; none past the end. Any thread.
    TaskPointer rowTask(qsizetype row) const;

    /// How many tasks have not reported their end.
    int taskCount() const;
    /// The application's badge shows the count of open tasks, or nothing for none.
    void setTaskNumberInDock();
    /// Cancels every open task from the last to the first, then reloads the table.
    void killAllTasks();
    /// Cancels every open task from the last to the first.
    void cancelAllTasks(Sender sender);
    /// Drops the rows of failed tasks.
    void removeAllErrors(Sender sender);
    /// Opens a new window with the text, titled "Output" where the title is absent.
    void showOutputWindowTitle(const QString& text, const OptionalText& title, const ReportFacts& facts = {});

    /// While held, nothing starts, and as long as tasks wait then the run does not end: no row is swept, the panel
    /// stays. Releasing starts what fits. Main thread.
    void setHeld(bool held);
    bool isHeld() const { return held_; }
    /// Takes a waiting task out: it gets `cancelled` and ends itself in its own way. It was never counted as running
    /// and is not counted down. Main thread. @return false for a task that does not wait, which is left alone
    bool withdrawTask(const TaskPointer& task);
    /// Ends everything for a front end, so that no tool is started only to be cancelled: holds the queue, marks every
    /// open task cancelled, withdraws the waiting ones from the last to the first, has the running ones cancelled, and
    /// goes back to the former hold. Waits for running tools as the cancel does. Main thread.
    void endEverything(const std::function<void()>& cancelRunning);

    /// Whose tasks those are that come to the queue from here on, unless they know it; see ZOLTTask::origin. Main
    /// thread.
    /// @return what was set before
    TaskOrigin setOrigin(const TaskOrigin& origin) { return std::exchange(origin_, origin); }

    /// Who is told of tasks from here on; nullptr for nobody. Main thread, while no task is open.
    /// @param listener  outlives the queue, or is taken away before it goes
    void setListener(TaskListener* listener) { listener_ = listener; }

    // What the panel's view and tests look at.
    ZOLTController* zoltController() const { return zoltController_; }
    const std::shared_ptr<Table>& tableView() const { return tableView_; }
    const std::shared_ptr<const Menu>& removeErrorsMenu() const { return removeErrorsMenu_; }
    const std::shared_ptr<Window>& panel() const { return panel_; }
    Tasks taskArray() const;
    Tasks panelArray() const;
    std::vector<std::shared_ptr<OutputWindowController>> outputWindows() const;
    std::int32_t activeTask() const { return activeTask_; }
    std::int32_t maxThreads() const { return maxThreads_; }
    std::int32_t lowestActivePosition() const { return lowestActivePosition_; }
    const Lock& lock() const { return lock_; }

private:
    void reportEnd(const TaskPointer& task);
    std::int32_t indexOfOpen(const TaskPointer& task) const;
    void removeOpenAt(std::int32_t index);
    TaskPointer nextWaiting(std::size_t& index);
    void startWaitingTasks();
    void start(const TaskPointer& task);
    void startFromReport(const TaskPointer& task);
    TaskPointer openTaskAt(std::size_t index) const;
    void raiseLowestActivePosition(const TaskPointer& task);
    bool sweep(const Tasks& rows, bool failedRows);
    void endOfRun(const Tasks& rows);
    void closeAfterRun();
    bool heldWithTasksWaiting();
    bool claimForWithdrawal(const TaskPointer& task);
    bool wasWithdrawn(const TaskPointer& task);
    void guarded(const std::function<void()>& report);
    void dropRows(std::vector<ZOLTTask*> rows);
    void cancelFromLastToFirst(Sender sender);
    void resetIfEmpty();

    ZOLTController* zoltController_ = nullptr;
    TaskOrigin origin_;
    std::atomic<TaskListener*> listener_ = nullptr;
    std::shared_ptr<OutputWindowController> outputWindowController_;
    std::shared_ptr<Table> tableView_;
    std::shared_ptr<const Menu> removeErrorsMenu_; // the table's
    std::deque<TaskPointer> taskArray_;
    std::deque<TaskPointer> panelArray_;
    std::unordered_set<TaskPointer> withdrawn_; // until they have reported
    std::size_t notWaiting_ = 0; // the first open tasks, known to run or to have ended; a task never goes back
    std::shared_ptr<Window> panel_;
    Lock lock_;
    std::atomic<std::int32_t> activeTask_ = 0;
    std::atomic<std::int32_t> maxThreads_ = 0;
    std::atomic<bool> held_ = false;
    std::atomic<int> adding_ = 0; // tasks on their way in, for which the panel has been brought up already
    std::atomic<std::int32_t> lowestActivePosition_ =
        0; // despite its name the highest row started since the queue ran empty
    QPointF outputWindowTopLeft_;
    std::vector<std::shared_ptr<OutputWindowController>> outputWindows_; // for good: nothing ever leaves

    mutable std::mutex containers_; // keeps the containers whole; never held across a call out
};

} // namespace zolt
