// Which files each command of the Checksum tab works on. Any thread.
#pragma once

#include <QString>
#include <QStringList>

namespace zolt::checksumKinds {

/// A file's kind: its extension in upper case.
QString kindOf(const QString& file);

/// FLAC files, in list order.
QStringList flacFiles(const QStringList& files);

/// Files whose audio shntool can hash, in list order.
QStringList hashableFiles(const QStringList& files);

/// The kind of list that a file is by its name: MD5, ST5 or FFP; empty for what is none. "x.ffp.txt" is FFP.
QString listKind(const QString& file);

} // namespace zolt::checksumKinds
