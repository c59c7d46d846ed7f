// Counts and lists of things in sentences for a person. Any thread.
#pragma once

#include <QString>
#include <QStringList>

namespace zolt {

/// A count with its noun: "1 file", "2 files".
QString counted(qsizetype count, const QString& noun);

/// "FLAC", "FLAC and SHN", "FLAC, SHN and WV".
QString enumerated(QStringList names);

/// The files by their kinds: "23 FLAC and SHN files". Those without an extension lend no kind.
QString filesInWords(const QStringList& files);

} // namespace zolt
