// All that one press of the Tags tab's command is about to write.
#pragma once

#include "shell/WorkPlan.h"
#include "tags/TagsObject.h"

namespace zolt {

/// Taken from the controls as a whole before the first file is written: what a person or another part of the program
/// does between two files changes nothing of the run. A value; any thread.
struct TagWriteJob
{
    /// One of the files, and where it stands in the whole list.
    struct Row
    {
        qsizetype row = 0;
        QString path;
    };

    QList<Row> rows;      ///< in list order
    bool isOne = false;   ///< at most one file is selected: title and track go in too
    TagsObject tags;      ///< what every file gets; title and track are in it for one file alone
    bool isNamed = false; ///< of several files each gets a name and its number
    QStringList names;    ///< by the row in the whole list
    bool writesEmpty = false;
    bool removesArt = false;      ///< the one file has a cover, and a person has taken it away
    bool artIsUnreadable = false; ///< the one file has a cover that cannot be shown

    QStringList paths() const;
    /// What a row's file gets. @throws RangeException for a row behind the last name
    TagsObject recordFor(const Row& row) const;
    /// Items, words and cautions: what goes to how many files, what is emptied, and what becomes of covers.
    void tellIn(WorkPlan& plan) const;

private:
    QString words() const;
    QString cautionOf(const Row& row) const;
    QStringList cautions() const;
    QString emptied() const;
    bool has(const QStringList& kinds) const;
};

} // namespace zolt
