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

    qsizetype written() const;
    /// "Wrote 12 files." or what went wrong, with the names of files; empty before the first run.
    QString sentence() const;
};

} // namespace zolt
