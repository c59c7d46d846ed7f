// What a split-point file tells about the names of the pieces. Any thread.
#pragma once

#include <QMap>
#include <QString>

namespace zolt {

/// By the name that the tool gives a piece, the name that it is to bear.
using TrackTitles = QMap<QString, QString>;

/// Reads "TRACK" and "TITLE" lines, as cue sheets have them; everything else is the tool's. Without one of either
/// there are no names. @param format  the extension of the pieces
TrackTitles trackTitles(const QString& text, const QString& format);

/// The name that the tool gives piece number `number`.
QString pieceName(int number, const QString& format);

} // namespace zolt
