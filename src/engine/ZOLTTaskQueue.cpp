#include "engine/ZOLTTaskQueue.h"

#include "engine/Log.h"
#include "engine/TaskListener.h"
#include "engine/ZOLTTask.h"
#include "platform/desktop/Desktop.h"
#include "platform/desktop/Interfaces.h"
#include "platform/desktop/UserDefaults.h"
#include "platform/errors/Exceptions.h"
#include "platform/threads/MainQueue.h"
#include "shell/Constants.h"

#include <algorithm>

namespace zolt {

namespace {

constexpr int informationalRequest = 10;
constexpr std::int32_t notFound = -1; // the not-found index taken as 32 bits

/// Runs its work however the scope is left.
template <class Work> struct AtEnd
{
    Work work;
    ~AtEnd() { work(); }
};

template <class Container>
std::vector<typename Container::value_type> copied(const Container& container, std::mutex& mutex)
{
    const std::lock_guard guard(mutex);
    return {container.begin(), container.end()};
}

std::shared_ptr<const Menu> makeErrorsMenu(ZOLTTaskQueue* queue)
{
    const MenuItem item{QStringLiteral("Remove All &Errors"), [queue] { queue->removeAllErrors(nullptr); }};
    return std::make_shared<const Menu>(Menu{{item}});
}

} // namespace

ZOLTTaskQueue::ZOLTTaskQueue()
    : tableView_(std::make_shared<Table>()), removeErrorsMenu_(makeErrorsMenu(this)),
      panel_(std::make_shared<Window>()),
      maxThreads_(UserDefaults::standard().integerForKey(QStringLiteral("maxThreads")))
{
    tableView_->setDataSource(this);
    tableView_->setMenu(removeErrorsMenu_);
    loadInterface(QStringLiteral("StatusQueue"), this);
}

ZOLTTaskQueue::~ZOLTTaskQueue()
{
    NotificationCenter::standard().removeObserver(this, Constants::ZOLTMaxThreadsChangedNotification, nullptr);
    tableView_->setDataSource(nullptr);
    Tasks tasks = panelArray();
    const Tasks open = taskArray(); // one may have lost its row while it ran
    tasks.insert(tasks.end(), open.begin(), open.end());
    for (const auto& task : tasks) {
        task->leftQueue();
        task->leftPanel();
    }
}

std::unique_ptr<ZOLTTaskQueue> ZOLTTaskQueue::initWithController(ZOLTController* controller)
{
    auto queue = std::make_unique<ZOLTTaskQueue>();
    queue->zoltController_ = controller;
    NotificationCenter::standard().addObserver(
        queue.get(), Constants::ZOLTMaxThreadsChangedNotification, nullptr,
        [self = queue.get()](const Notification& notification) { self->maxThreadsChanged(notification); });
    return queue;
}

void ZOLTTaskQueue::maxThreadsChanged(const Notification& notification)
{
    if (const int* number = std::any_cast<int>(&notification.object)) maxThreads_ = *number;
}

void ZOLTTaskQueue::addTask(const TaskPointer& task)
{
    if (task->origin().name.isEmpty()) task->setOrigin(origin_);
    ++adding_;
    panel_->makeKeyAndOrderFront();
    lock_.lock();
    {
        const std::lock_guard guard(containers_);
        taskArray_.push_back(task);
        panelArray_.push_back(task);
    }
    --adding_;
    if (TaskListener* const listener = listener_) listener->taskAdded(task);
    setTaskNumberInDock();
    tableView_->reloadData();
    if (!held_ && activeTask_ < maxThreads_) {
        start(task); // unguarded: what it throws leaves the lock held
        raiseLowestActivePosition(task);
        ++activeTask_;
    }
    lock_.unlock();
}

void ZOLTTaskQueue::addTasks(const Tasks& tasks)
{
    for (const auto& task : tasks)
        addTask(task);
}

void ZOLTTaskQueue::startTask(const TaskPointer& task)
{
    task->startTask();
}

void ZOLTTaskQueue::start(const TaskPointer& task)
{
    if (TaskListener* const listener = listener_) listener->taskStarted(task);
    startTask(task);
}

void ZOLTTaskQueue::taskCompleted(const TaskPointer& task)
{
    const AtEnd closing{[this] { resetIfEmpty(); }};
    guarded([&] { reportEnd(task); });
}

void ZOLTTaskQueue::guarded(const std::function<void()>& report)
{
    try {
        report();
    } catch (const PlatformException& fault) {
        qCWarning(engineLog, "Exception in queue taskCompleted: %s", fault.what());
        lock_.unlock(); // may come without the hold: a fault can also arise after the lock was released
    }
}

void ZOLTTaskQueue::reportEnd(const TaskPointer& task)
{
    const ZOLTTask::Hold hold(task); // its results outlast the report
    lock_.lock();
    const std::int32_t index = indexOfOpen(task);
    // Kept: also for a task cancelled while waiting, which was never counted.
    if (!wasWithdrawn(task) && task->isDone()) --activeTask_;
    const auto results = task->results();
    removeOpenAt(index);
    task->leftQueue();
    if (TaskListener* const listener = listener_) listener->taskEnded(task);
    OptionalText shown;
    const AtEnd reported{[&] {
        if (TaskListener* const listener = listener_) listener->taskReported(task, shown);
    }};
    setTaskNumberInDock();
    tableView_->reloadData();
    startWaitingTasks();
    tableView_->scrollRowToVisible(lowestActivePosition_);
    // Decided under the lock: a task added from here on belongs to the next run, and of two tasks of a set that end at
    // once the last to report shows the text.
    const bool idle = activeTask_ == 0 && !heldWithTasksWaiting();
    const Tasks rows = idle ? panelArray() : Tasks();
    const bool showsText = results && results->taskSetDone() && results->allTasksReported();
    lock_.unlock();

    if (idle) endOfRun(rows);
    if (!showsText) return;
    shown = results->results();
    showOutputWindowTitle(*shown, task->optionalTitle(), {task->source(), results->notes()});
}

void ZOLTTaskQueue::endOfRun(const Tasks& rows)
{
    const bool failed = sweep(rows, false);
    tableView_->reloadData();
    if (!failed) closeAfterRun();
}

void ZOLTTaskQueue::closeAfterRun()
{
    const std::lock_guard guard(lock_);
    // Another run has begun since: its own end closes. Less than none is a second report, on its way to be set back.
    if (activeTask_ > 0 || adding_ != 0) return;
    panel_->close();
    if (adding_ != 0) panel_->makeKeyAndOrderFront(); // for a task that came up to the lock meanwhile
    setTaskNumberInDock();
    desktop().requestUserAttention(informationalRequest);
}

void ZOLTTaskQueue::setHeld(bool held)
{
    if (lock_.isHeldByThisThread()) { // left behind by a task that could not be started: nothing starts any more
        held_ = held;
        return;
    }
    guarded([&] {
        lock_.lock();
        held_ = held;
        startWaitingTasks();
        lock_.unlock();
    });
}

bool ZOLTTaskQueue::heldWithTasksWaiting()
{
    std::size_t index = 0;
    return held_ && nextWaiting(index) != nullptr;
}

bool ZOLTTaskQueue::claimForWithdrawal(const TaskPointer& task)
{
    if (lock_.isHeldByThisThread()) return false;
    const std::lock_guard turn(lock_); // nobody starts it from here on
    const std::lock_guard guard(containers_);
    const bool open = std::find(taskArray_.rbegin(), taskArray_.rend(), task) != taskArray_.rend();
    return open && task->isWaiting() && withdrawn_.insert(task).second;
}

bool ZOLTTaskQueue::wasWithdrawn(const TaskPointer& task)
{
    const std::lock_guard guard(containers_);
    return withdrawn_.erase(task) > 0;
}

bool ZOLTTaskQueue::withdrawTask(const TaskPointer& task)
{
    if (!claimForWithdrawal(task)) return false;
    const ZOLTTask::Hold hold(task);
    task->setCancelled(true);
    task->stopTask(nullptr);
    return true;
}

void ZOLTTaskQueue::endEverything(const std::function<void()>& cancelRunning)
{
    const bool former = held_;
    setHeld(true);
    const Tasks open = taskArray();
    // All at once: while the walk waits for one tool another may end, and no source is deleted behind that.
    for (const auto& task : open)
        task->setCancelled(true);
    for (auto task = open.rbegin(); task != open.rend(); ++task)
        withdrawTask(*task);
    cancelRunning();
    setHeld(former);
}

std::int32_t ZOLTTaskQueue::indexOfOpen(const TaskPointer& task) const
{
    const std::lock_guard guard(containers_);
    const auto count = std::int32_t(taskArray_.size());
    // From both ends: tasks end at the front, and are cancelled from the back.
    for (std::int32_t low = 0, high = count - 1; low <= high; ++low, --high) {
        if (taskArray_[std::size_t(low)] == task) return low;
        if (taskArray_[std::size_t(high)] == task) return high;
    }
    return notFound;
}

void ZOLTTaskQueue::removeOpenAt(std::int32_t index)
{
    const std::lock_guard guard(containers_);
    if (index < 0 || std::size_t(index) >= taskArray_.size()) {
        throw RangeException(QStringLiteral("index %1 beyond bounds, %2 open tasks").arg(index).arg(taskArray_.size()));
    }
    taskArray_.erase(taskArray_.begin() + index);
    if (std::size_t(index) < notWaiting_) --notWaiting_;
}

ZOLTTaskQueue::TaskPointer ZOLTTaskQueue::nextWaiting(std::size_t& index)
{
    const std::lock_guard guard(containers_);
    const auto isWaiting = [this](std::size_t at) {
        const TaskPointer& task = taskArray_[at];
        return task->isWaiting() && !withdrawn_.contains(task);
    };
    while (notWaiting_ < taskArray_.size() && !isWaiting(notWaiting_))
        ++notWaiting_;
    index = std::max(index, notWaiting_);
    while (index < taskArray_.size() && !isWaiting(index))
        ++index;
    return index < taskArray_.size() ? taskArray_[index] : nullptr;
}

ZOLTTaskQueue::TaskPointer ZOLTTaskQueue::openTaskAt(std::size_t index) const
{
    const std::lock_guard guard(containers_);
    return index < taskArray_.size() ? taskArray_[index] : nullptr;
}

void ZOLTTaskQueue::startWaitingTasks()
{
    for (std::size_t index = 0; !held_ && activeTask_ < maxThreads_; ++index) {
        const auto task = nextWaiting(index);
        if (!task) return;
        startFromReport(task);
        panel_->makeKeyAndOrderFront();
        raiseLowestActivePosition(task);
        ++activeTask_;
    }
}

void ZOLTTaskQueue::startFromReport(const TaskPointer& task)
{
    try {
        start(task);
    } catch (const PlatformException& fault) {
        // Nobody else would ever end this task: its row gets its end once this report is over, and is counted out then.
        ++activeTask_;
        postToMain([task, reason = fault.reason()] { task->endAfterFault(reason); });
        throw;
    }
}

void ZOLTTaskQueue::raiseLowestActivePosition(const TaskPointer& task)
{
    const std::lock_guard guard(containers_);
    // Tasks start in the order of their rows, so the row lies at or just below the last one started.
    const auto hint =
        panelArray_.begin() + std::clamp<std::ptrdiff_t>(lowestActivePosition_, 0, std::ptrdiff_t(panelArray_.size()));
    auto found = std::find(hint, panelArray_.end(), task);
    if (found == panelArray_.end()) return; // above the hint: the position is higher already
    lowestActivePosition_ = std::max<std::int32_t>(lowestActivePosition_, std::int32_t(found - panelArray_.begin()));
}

bool ZOLTTaskQueue::sweep(const Tasks& rows, bool failedRows)
{
    std::vector<ZOLTTask*> dropped;
    for (auto task = rows.rbegin(); task != rows.rend(); ++task) {
        if ((*task)->error() != failedRows) continue;
        (*task)->hide();
        dropped.push_back(task->get());
    }
    const bool stays = dropped.size() < rows.size();
    dropRows(std::move(dropped));
    return stays;
}

void ZOLTTaskQueue::dropRows(std::vector<ZOLTTask*> rows)
{
    std::sort(rows.begin(), rows.end()); // to be looked up: it may be every row of many
    {
        const std::lock_guard guard(containers_);
        std::erase_if(panelArray_,
                      [&rows](const auto& task) { return std::binary_search(rows.begin(), rows.end(), task.get()); });
    }
    for (ZOLTTask* const task : rows)
        task->leftPanel();
}

void ZOLTTaskQueue::resetIfEmpty()
{
    // Under the lock, unless this thread still has it, so that a task added at the same time keeps its count.
    const bool taken = lock_.tryLock();
    if (!taken && !lock_.isHeldByThisThread()) return; // whoever has it adds a task, or closes by itself
    if (taskCount() == 0) {
        activeTask_ = 0;
        lowestActivePosition_ = 0;
    }
    if (taken) lock_.unlock();
}

qsizetype ZOLTTaskQueue::numberOfRowsInTableView() const
{
    const std::lock_guard guard(containers_);
    return qsizetype(panelArray_.size());
}

QString ZOLTTaskQueue::tableViewObjectValueForTableColumnRow(int, qsizetype) const
{
    return QString();
}

void ZOLTTaskQueue::tableViewWillDisplayCellForTableColumnRow(StatusQueueCell& cell, qsizetype row)
{
    TaskPointer task;
    {
        const std::lock_guard guard(containers_);
        if (row < 0 || std::size_t(row) >= panelArray_.size()) return; // swept since the view counted its rows
        task = panelArray_[std::size_t(row)];
    }
    cell.setProgressIndicator(task->progressIndicator());
    cell.setCancelButton(task->cancelButton());
    cell.setTextField(task->textField());
    cell.setTopTextField(task->topTextField());
    task->progressIndicator()->addToSuperview();
    task->cancelButton()->addToSuperview();
    task->textField()->addToSuperview();
    task->topTextField()->addToSuperview();
}

ZOLTTaskQueue::TaskPointer ZOLTTaskQueue::rowTask(qsizetype row) const
{
    const std::lock_guard guard(containers_);
    return row >= 0 && std::size_t(row) < panelArray_.size() ? panelArray_[std::size_t(row)] : nullptr;
}

int ZOLTTaskQueue::taskCount() const
{
    const std::lock_guard guard(containers_);
    return int(taskArray_.size());
}

void ZOLTTaskQueue::setTaskNumberInDock()
{
    const int count = taskCount();
    desktop().setBadgeLabel(count == 0 ? OptionalText() : QString::number(count));
}

void ZOLTTaskQueue::cancelFromLastToFirst(Sender sender)
{
    // The list shrinks behind the walk, and waiting tasks may start and end ahead of it.
    for (int index = taskCount(); index-- > 0;) {
        if (const auto task = openTaskAt(std::size_t(index))) task->cancelTask(sender);
    }
}

void ZOLTTaskQueue::killAllTasks()
{
    cancelFromLastToFirst(nullptr);
    tableView_->reloadData();
}

void ZOLTTaskQueue::cancelAllTasks(Sender sender)
{
    cancelFromLastToFirst(sender);
}

void ZOLTTaskQueue::removeAllErrors(Sender)
{
    sweep(panelArray(), true);
    tableView_->reloadData();
    if (taskCount() == 0) panel_->close();
    setTaskNumberInDock();
}

void ZOLTTaskQueue::showOutputWindowTitle(const QString& text, const OptionalText& title, const ReportFacts& facts)
{
    const auto window = std::make_shared<OutputWindowController>(facts);
    window->loadWindow();
    window->setTextValueTitle(text, title.value_or(QStringLiteral("Output")));
    QPointF topLeft;
    {
        const std::lock_guard guard(containers_); // two reports at once still take one step each
        outputWindowController_ = window;
        topLeft = outputWindowTopLeft_ = Window::cascadeTopLeftFromPoint(outputWindowTopLeft_);
        outputWindows_.push_back(window);
    }
    window->window()->setFrameTopLeftPoint(topLeft);
    window->showWindow();
}

ZOLTTaskQueue::Tasks ZOLTTaskQueue::taskArray() const
{
    return copied(taskArray_, containers_);
}

ZOLTTaskQueue::Tasks ZOLTTaskQueue::panelArray() const
{
    return copied(panelArray_, containers_);
}

std::vector<std::shared_ptr<OutputWindowController>> ZOLTTaskQueue::outputWindows() const
{
    return copied(outputWindows_, containers_);
}

} // namespace zolt
