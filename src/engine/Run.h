// A run: what was queued from the first task to the moment when nothing was open any more.
#pragma once

#include "engine/ReportVerdict.h"
#include "engine/RunProgress.h"
#include "engine/ZOLTTask.h"
#include "platform/text/Text.h"

#include <QDateTime>

#include <deque>
#include <memory>

namespace zolt {

/// What a row is called: the task's title, or the name line of a task without one; with the name of its source behind
/// where that tells it from others of its kind.
QString nameOf(const ZOLTTask& task);

/// Where a row stands; from Complete on it has ended.
enum class Outcome { Waiting, Running, Complete, Failed, Canceled };

inline bool hasEnded(Outcome outcome)
{
    return outcome >= Outcome::Complete;
}

/// As the task's own flags tell it once it has ended.
Outcome outcomeOf(const ZOLTTask& task);

/// One task of a run.
struct RunRow
{
    QString title;                       ///< as nameOf
    QString source;                      ///< full path; empty where the task works on no file, or on several
    TaskOrigin origin;                   ///< who had it queued
    qint64 bytes = RunProgress::unknown; ///< of the source
    Outcome outcome = Outcome::Waiting;
    qint64 milliseconds = 0;        ///< from its start to its end; 0 until then, and for one that never ran
    OptionalText report;            ///< the text of the output window that its end opened
    std::shared_ptr<ZOLTTask> task; ///< until it has ended
    ReportNotes notes;              ///< of the report
    ReportVerdict verdict;          ///< of the report

    bool failsByReport = false; ///< the row's own part of the report names what is bad or missing

    /// It is not as it should be: its task failed, or was complete with a report that says so. Never of a canceled row.
    bool failed() const { return outcome == Outcome::Failed || (outcome == Outcome::Complete && failsByReport); }
    /// The files to work on once more: its source, else all that its command was pressed on.
    QStringList files() const { return source.isEmpty() ? origin.files : QStringList(source); }
};

struct Run
{
    std::deque<RunRow> rows; ///< in the order queued; a reference to a row stays good
    QDateTime begunAt;
    qint64 milliseconds = 0; ///< from the first task added to the last report; 0 until then
    qsizetype running = 0;
    qsizetype complete = 0;
    qsizetype failed = 0;
    qsizetype canceled = 0;

    qsizetype ended() const { return complete + failed + canceled; }
    qsizetype count() const { return qsizetype(rows.size()); }
    /// How many rows are not as they should be: also those that are complete with a report that says so.
    qsizetype failedRows() const;
};

/// "28 complete, 2 failed, 0 canceled, 0:07".
QString inWords(const Run& run);

/// "complete", "failed", "canceled", "running", "waiting".
QString inWords(Outcome outcome);

} // namespace zolt
