// Counts and times in words for a person, in the locale's own grouping. Any thread.
#pragma once

#include <QString>

namespace zolt {

/// The number with the locale's separators: "20,000".
QString grouped(qint64 number);

/// A count with its noun: "1 file", "20,000 files". @param noun  in the singular; gets an "s" for more than one
QString counted(qint64 count, const QString& noun);

/// A length of time: "0:07", "4:10", or "1:04:10" from an hour on.
QString clockText(qint64 milliseconds);

} // namespace zolt
