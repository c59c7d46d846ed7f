// What the lines of a report say about the files they name.
#pragma once

#include <QString>
#include <QStringView>

namespace zolt {

enum class LineVerdict { None, Good, Bad };

/// How the line reads: "a.flac : OK" is good, a line that tells of an error, a failure or a mismatch is bad.
LineVerdict verdictOfLine(QStringView line);

/// "11 OK, 1 failed", or the number of lines where none tells an outcome.
QString reportSummary(const QString& report);

} // namespace zolt
