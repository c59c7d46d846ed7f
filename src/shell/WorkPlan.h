// What pressing a tab's command would do, as far as list and choices tell it.
#pragma once

#include "platform/text/Text.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <atomic>
#include <cstdint>
#include <functional>
#include <vector>

namespace zolt {

/// One source and what becomes of it.
struct WorkItem
{
    enum class Existing {
        Refused,    ///< what stands at an output stays, and the task fails
        Overwritten ///< it is replaced
    };
    enum class Size {
        Unknown,
        LikeSource, ///< at most about the source's own
        PlainAudio  ///< that of the source's audio without compression
    };

    qsizetype row = 0;         ///< in the tab's list
    QString source;            ///< full path
    QStringList outputs;       ///< full paths; none, one or several. In a folder yet to be chosen: names alone
    bool sharesOutput = false; ///< an output is meant to hold several sources: a joined file, a list of sums
    Existing existing = Existing::Refused;
    Size outputSize = Size::Unknown; ///< of all outputs together
    bool staged = false;             ///< a WAV of its audio stands beside the output until that is made
    std::int64_t bytes = -1;         ///< of the source; -1 until somebody has looked at the disk
    std::int64_t outputBytes = -1;   ///< about, of all outputs; -1 where it is not known but by outputSize
    QString caution;                 ///< a sentence about this source; empty for none
};

/// What a look at the files themselves found, for a person to know before the start.
struct WorkCaution
{
    QString text;          ///< one sentence
    QList<qsizetype> rows; ///< of the list that it is about; empty where it is about all
};

/// Made on the main thread without a look at the disk; a value that any thread may read then.
struct WorkPlan
{
    QStringList files;           ///< the tab's list
    std::vector<WorkItem> items; ///< in list order
    bool indivisible = false;    ///< the list is worked on as a whole: no row of it can be left out for a problem
    QList<qsizetype> passedOver; ///< rows that the command makes nothing of
    bool deletes = false;        ///< the sources go after success
    bool neverToTrash = false;   ///< they are gone for good then, whatever the setting says
    QStringList tools;           ///< that the command runs
    QString words;               ///< "23 FLAC files to WAV"; with no item, a sentence that says so
    bool besideSources = false;  ///< outputs stand beside their sources
    bool needsFolder = false;    ///< a folder is asked for, unless the tab has a destination
    QString folder;              ///< the tab's destination where one is needed; empty if none is set
    QStringList cautions;        ///< sentences about the whole
    QString refusal;             ///< a sentence why the command is not to be pressed now; empty where it may
    /// About how many bytes the outputs will take together; 0 where nobody can say. Run as `inspect` is.
    std::function<std::int64_t(const WorkPlan& plan, const std::atomic<bool>& stop)> estimate;
    /// What the tab wants to be read in the files; run on a thread of its own, and given up when `stop` is set.
    std::function<std::vector<WorkCaution>(const WorkPlan& plan, const std::atomic<bool>& stop)> inspect;

    /// Outputs stand beside their sources, or in a folder, which is the tab's destination if it has one.
    void setPlaces(bool beside, const OptionalText& destination);
    /// Where the outputs of a source go; empty for a folder that is yet to be chosen.
    QString folderFor(const QString& source) const;
    /// The sources of all items.
    QStringList sources() const;
};

} // namespace zolt
