// What one run of the Tags tab did, file by file.
#pragma once

#include "platform/text/Text.h"

#include <QList>

namespace zolt {

/// Filled while the run goes on. A file that fails ends it: the files behind are the unwritten ones.
struct TagWriteRun
{
    struct File
    {
        QString path;
        OptionalText refusal; ///< why it was left as it was; absent if it was written
    };

    qsizetype asked = 0; ///< how many files were selected
    QList<File> files;   ///< that the run came to, in list order
    bool failed = false; ///< the last of them ended the run
    QStringList unkept;  ///< files that were written and cannot be undone

    qsizetype written() const;
    bool isWritten(const QString& path) const;
    /// "12 of 12 files written." and what went wrong, with the names of files; empty before the first run.
    QString sentence() const;
    /// "Writing 3 of 12 files...", of the one that comes next.
    QString progress() const;
};

} // namespace zolt
