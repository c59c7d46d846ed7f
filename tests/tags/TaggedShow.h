// A show of 23 files in five formats, and what other programs read in them.
#pragma once

#include <QByteArray>
#include <QMap>
#include <QStringList>

namespace zolt::test {

/// The names of the files, in the order of a list: FLAC, MP3, M4A, WV and APE by turns.
QStringList showFiles();
/// The titles that setlist and cue sheet come to.
QStringList showTitles();
/// A text as people write it, with set headings, segues, times, footnotes and several kinds of numbers.
QByteArray showSetlist();
/// A cue sheet with several FILE lines. The album is "Barn Hall", the artist "The Nobodies".
QByteArray showCueSheet();

/// The title of a file as every program reads it that knows the format, by the program's name.
QMap<QString, QString> titlesElsewhere(const QString& path);
/// The digest of the file's sound, by a program of its own.
QString soundDigest(const QString& path);

} // namespace zolt::test
