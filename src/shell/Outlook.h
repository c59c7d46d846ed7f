// What pressing a tab's command would do, told before it is pressed.
#pragma once

#include "shell/OutlookDisk.h"
#include "shell/WorkPlan.h"

namespace zolt {

/// One thing to know before the start.
struct OutlookProblem
{
    enum class Kind {
        Refused,       ///< not now; nothing can start
        MissingTool,   ///< nothing can start
        MissingFolder, ///< the destination is not there; nothing can start
        PassedOver,    ///< files without a task
        Vanished,      ///< sources that are no longer there
        Collision,     ///< outputs that several sources would be written to
        Existing,      ///< outputs that exist
        Unwritable,    ///< folders that this user may not write to
        Room,          ///< more is written than the disk has room for
        Caution        ///< what the tab itself has to say
    };

    Kind kind;
    QString text;          ///< one sentence about all of it
    QList<qsizetype> rows; ///< of the tab's list; the rest can start without this problem if they are left out
    QStringList details;   ///< a sentence for each case, where there are several; else empty

    bool operator==(const OutlookProblem&) const = default;
};

/// What is known before the start, in words for a person.
struct Outlook
{
    QString intention;                    ///< "23 FLAC files to WAV beside their sources"; empty for an empty list
    std::vector<OutlookProblem> problems; ///< the gravest first

    bool operator==(const Outlook&) const = default;
    /// The sentences of the problems.
    QStringList sentences() const;
    /// The problem of that kind; none where there is none. Of cautions, the first.
    const OutlookProblem* problem(OutlookProblem::Kind kind) const;
};

/// Works the outlook out. Any thread; looks at every file, so a long list belongs on a thread of its own.
/// @param stop  set by another thread to end early; the result is then incomplete and worth nothing
Outlook outlookOf(const WorkPlan& plan, const OutlookDisk& disk, const std::atomic<bool>& stop);

/// What the command will do, in one phrase. Any thread; looks at no file.
QString intentionOf(const WorkPlan& plan);

} // namespace zolt
