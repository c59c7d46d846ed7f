#include "engine/ZOLTTaskResults.h"

#include "engine/ZOLTTask.h"

namespace zolt {

namespace {

const QString firstKey = QStringLiteral("0");
const QString notFoundKey = QStringLiteral("-1"); // the index of a task outside the set, printed with 32 bits

} // namespace

ZOLTTaskResults::ZOLTTaskResults() = default;

ZOLTTaskResults::~ZOLTTaskResults()
{
    // A following task that never came to be queued has no queue to break its ring with its own results.
    const auto& next = taskAfterSetDone_;
    if (next && !taskAfterSetClaimed_ && next->isWaiting()) next->setResults(nullptr);
}

void ZOLTTaskResults::appendResults(const OptionalText& text)
{
    const std::lock_guard guard(mutex_);
    append(firstKey, text);
}

void ZOLTTaskResults::appendResultsForTask(const OptionalText& text, const ZOLTTask* task)
{
    const std::lock_guard guard(mutex_);
    append(keyOf(task), text);
}

void ZOLTTaskResults::append(const QString& key, const OptionalText& text)
{
    const auto slot = resultsDictionary_.find(key);
    if (slot != resultsDictionary_.end()) appendText(slot->second, text);
}

QString ZOLTTaskResults::keyOf(const ZOLTTask* task) const
{
    const auto found = indices_.find(task);
    return found == indices_.end() ? notFoundKey : QString::number(found->second);
}

QString ZOLTTaskResults::results() const
{
    const std::lock_guard guard(mutex_);
    QString all;
    for (std::size_t index = 0; index < tasksInSet_.size(); ++index) {
        const auto slot = resultsDictionary_.find(QString::number(index));
        if (slot != resultsDictionary_.end()) all.append(slot->second).append(u'\n');
    }
    return all;
}

OptionalText ZOLTTaskResults::resultsOfTask(const ZOLTTask* task) const
{
    const std::lock_guard guard(mutex_);
    const auto slot = resultsDictionary_.find(keyOf(task));
    return slot == resultsDictionary_.end() ? std::nullopt : OptionalText(slot->second);
}

void ZOLTTaskResults::setResults(const QString& text)
{
    const std::lock_guard guard(mutex_);
    resultsDictionary_[firstKey] = text;
}

void ZOLTTaskResults::setResultsForTask(const QString& text, const ZOLTTask* task)
{
    const std::lock_guard guard(mutex_);
    resultsDictionary_[keyOf(task)] = text;
}

void ZOLTTaskResults::noteMissing(const QString& line)
{
    const std::lock_guard guard(mutex_);
    notes_.missing += line;
}

void ZOLTTaskResults::noteSignal(int signal)
{
    const std::lock_guard guard(mutex_);
    if (notes_.signal == 0) notes_.signal = signal;
}

ReportNotes ZOLTTaskResults::notes() const
{
    const std::lock_guard guard(mutex_);
    ReportNotes all = notes_;
    for (const auto& [task, sentence] : faults_)
        all.faults += sentence;
    return all;
}

ReportNotes ZOLTTaskResults::notesOfTask(const ZOLTTask* task) const
{
    const std::lock_guard guard(mutex_);
    ReportNotes own = notes_;
    for (const auto& [faulty, sentence] : faults_) {
        if (faulty == task) own.faults += sentence;
    }
    return own;
}

void ZOLTTaskResults::noteFault(const QString& sentence, const ZOLTTask* task)
{
    const std::lock_guard guard(mutex_);
    faults_.emplace_back(task, sentence);
}

void ZOLTTaskResults::addTaskInSet(const std::shared_ptr<ZOLTTask>& task)
{
    const std::lock_guard guard(mutex_);
    const std::size_t index = tasksInSet_.size();
    tasksInSet_.push_back(task);
    indices_.emplace(task.get(), index); // a task entered twice keeps its first index
    resultsDictionary_[QString::number(index)] = QString();
}

std::shared_ptr<ZOLTTask> ZOLTTaskResults::taskAfterSetDone() const
{
    const std::lock_guard guard(mutex_);
    return taskAfterSetDone_;
}

void ZOLTTaskResults::setTaskAfterSetDone(const std::shared_ptr<ZOLTTask>& task)
{
    const std::lock_guard guard(mutex_);
    taskAfterSetDone_ = task;
    taskAfterSetClaimed_ = false;
}

std::shared_ptr<ZOLTTask> ZOLTTaskResults::claimTaskAfterSetDone()
{
    const std::lock_guard guard(mutex_);
    if (taskAfterSetClaimed_ || !taskAfterSetDone_ || !taskAfterSetDone_->isWaiting()) return nullptr;
    taskAfterSetClaimed_ = true;
    return taskAfterSetDone_;
}

ZOLTTaskResults::Tasks ZOLTTaskResults::tasksInSet() const
{
    const std::lock_guard guard(mutex_);
    return tasksInSet_;
}

void ZOLTTaskResults::setTasksInSet(const Tasks& tasks)
{
    const std::lock_guard guard(mutex_);
    tasksInSet_ = tasks;
    doneAtStart_ = 0;
    indices_.clear();
    for (std::size_t index = 0; index < tasks.size(); ++index)
        indices_.emplace(tasks[index].get(), index);
}

bool ZOLTTaskResults::allTasksDone() const
{
    const std::lock_guard guard(mutex_);
    while (doneAtStart_ < tasksInSet_.size() && tasksInSet_[doneAtStart_]->isDone())
        ++doneAtStart_;
    return doneAtStart_ == tasksInSet_.size();
}

bool ZOLTTaskResults::allTasksReported() const
{
    const Tasks tasks = tasksInSet();
    return std::all_of(tasks.begin(), tasks.end(), [](const auto& task) { return task->hasLeftQueue(); });
}

} // namespace zolt
