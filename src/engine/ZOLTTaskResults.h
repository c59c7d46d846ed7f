// Collects what tasks have to tell: one slot a task, one report a set.
#pragma once

#include "engine/ReportVerdict.h"
#include "platform/text/Text.h"

#include <QString>
#include <QStringList>

#include <atomic>
#include <map>
#include <memory>
#include <mutex>
#include <unordered_map>
#include <vector>

namespace zolt {

class ZOLTTask;

/// Refers to its tasks, and they to it; the queue breaks the ring when it drops a task (see ZOLTTask::leftPanel).
/// Operations may be called from any thread.
class ZOLTTaskResults
{
public:
    using Tasks = std::vector<std::shared_ptr<ZOLTTask>>;

    ZOLTTaskResults();
    ~ZOLTTaskResults();
    ZOLTTaskResults(const ZOLTTaskResults&) = delete;
    ZOLTTaskResults& operator=(const ZOLTTaskResults&) = delete;

    /// Appends to the text under key "0", whichever task calls: in a shared set the texts of all tasks that use this
    /// form meet in the first task's slot, in order of arrival. An absent text adds nothing.
    void appendResults(const OptionalText& text);
    /// Appends to the task's own text; lost with no report if the task is not in the set.
    void appendResultsForTask(const OptionalText& text, const ZOLTTask* task);

    /// The texts of the set in the order entered, each followed by a line end.
    QString results() const;
    /// The task's own text; absent where it is not in the set.
    OptionalText resultsOfTask(const ZOLTTask* task) const;
    /// The text under key "0" becomes the string.
    void setResults(const QString& text);
    /// Fills the task's own slot anew; for a task outside the set `results` never looks there.
    void setResultsForTask(const QString& text, const ZOLTTask* task);

    /// Remembers a line of the report that is about a file which is not there, where the line itself does not say so.
    void noteMissing(const QString& line);
    /// Remembers what killed a tool; the first is kept.
    void noteSignal(int signal);
    ReportNotes notes() const;
    /// As notes(), of faults those of this task alone.
    ReportNotes notesOfTask(const ZOLTTask* task) const;

    /// Remembers what is wrong with an output though the tool did not say so: one sentence. The report's text stays.
    void noteFault(const QString& sentence, const ZOLTTask* task);

    /// Appends the task to the set, with an empty text.
    void addTaskInSet(const std::shared_ptr<ZOLTTask>& task);

    /// What is queued behind the set's last task; none by default.
    std::shared_ptr<ZOLTTask> taskAfterSetDone() const;
    void setTaskAfterSetDone(const std::shared_ptr<ZOLTTask>& task);
    /// Hands out the task to queue, to the first who asks and to nobody after: two tasks of the set may end at once.
    std::shared_ptr<ZOLTTask> claimTaskAfterSetDone();

    bool taskSetDone() const { return taskSetDone_; }
    void setTaskSetDone(bool done) { taskSetDone_ = done; }

    /// The set in the order entered, as it stands now.
    Tasks tasksInSet() const;
    void setTasksInSet(const Tasks& tasks);
    /// True if every task of the set has ended.
    bool allTasksDone() const;
    /// True if every task of the set has left the queue.
    bool allTasksReported() const;

private:
    QString keyOf(const ZOLTTask* task) const;
    void append(const QString& key, const OptionalText& text);

    mutable std::mutex mutex_;
    Tasks tasksInSet_;
    std::map<QString, QString> resultsDictionary_;             // text by the task's index in the set, as text
    std::unordered_map<const ZOLTTask*, std::size_t> indices_; // of each task in the set
    ReportNotes notes_;                                        // but for the faults
    std::vector<std::pair<const ZOLTTask*, QString>> faults_;
    std::shared_ptr<ZOLTTask> taskAfterSetDone_;
    std::atomic<bool> taskSetDone_ = false;
    bool taskAfterSetClaimed_ = false;
    mutable std::size_t doneAtStart_ = 0; // the set's first tasks, known to have ended; a task never goes back
};

} // namespace zolt
