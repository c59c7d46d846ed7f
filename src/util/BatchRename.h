// New names for a list of files: a prefix and a running number.
#pragma once

#include "platform/text/Text.h"

#include <QStringList>

namespace zolt {

/// The new path of each file, in its own folder and with its own extension: prefix "x" gives x01, x02 and so on.
QStringList renamedPaths(const QStringList& files, const QString& prefix);

/// The first of the paths at which something stands already; nothing if all are free.
OptionalText firstTaken(const QStringList& paths);

/// Moves each file to the path of the same index; what cannot be moved stays. @return how many were moved
qsizetype moveFiles(const QStringList& files, const QStringList& paths);

} // namespace zolt
