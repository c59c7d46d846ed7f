// The tracks of an audio disc, known by files whose names begin with the track's number and a blank. On the texts
// alone; any thread.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace zolt {

/// The number ahead of the first white space; 0 where the name begins with none.
int leadingNumber(const QString& name);

/// The names of the files in the order of the tracks: numbers below ten get a 0 put in front, then they are sorted.
QStringList tracksInOrder(const QStringList& files);

/// As tracksInOrder with the folder of each file left in front. A path may then name no file: its last component
/// counts.
QStringList trackPathsInOrder(const QStringList& files);

/// Tracks that the tool reads in one go.
struct TrackRange
{
    int first = -1;
    int last = 0;
    bool holds(int track) const { return first <= track && track <= last; }
};

/// The run of tracks that begins with the first name; see trackRange.
TrackRange rangeOf(const QStringList& names);

/// The first and the last number of the run of tracks that begins with the first name, joined by "+": "3+5" of
/// 3, 4, 5, 7. Behind a gap the run goes on only with the number that was missing. "-1+0" of no names.
QString trackRange(const QStringList& names);

/// The rows of the track files that the range of them all does not hold, being behind a gap.
QList<qsizetype> rowsOutsideRange(const QStringList& files);

} // namespace zolt
