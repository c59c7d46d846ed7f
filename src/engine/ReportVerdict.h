// What a report amounts to: which of its lines are good or bad news, and why something failed. No state; any thread.
#pragma once

#include <QSet>
#include <QString>
#include <QStringList>
#include <QStringView>

namespace zolt {

enum class LineVerdict {
    Other,  ///< says nothing of an outcome
    Good,   ///< "a.flac : OK"
    Bad,    ///< a failure or a mismatch
    Missing ///< a file that is not there
};

/// How a line of a tool's own text reads. Each failure has one line that counts as bad; what a tool says around it,
/// such as its advice, does not.
LineVerdict verdictOfLine(QStringView line);
/// @param missing  lines that count as missing whatever they say (see ZOLTTaskResults::noteMissing)
LineVerdict verdictOfLine(QStringView line, const QSet<QString>& missing);

struct ReportVerdict
{
    qsizetype good = 0;
    qsizetype bad = 0;
    qsizetype missing = 0;
    qsizetype other = 0; ///< lines that are not empty and none of the above
    QString cause;       ///< one sentence that says why something failed; empty where it is not known

    bool failed() const { return bad + missing > 0; }
    bool operator==(const ReportVerdict&) const = default;
};

/// Reads the whole report; the work grows with its length.
/// @param missing  as above
/// @param faults   what no line tells (see ZOLTTaskResults::noteFault): each counts as bad, the first is the cause
ReportVerdict verdictOf(const QString& report, const QSet<QString>& missing = {}, const QStringList& faults = {});

/// "11 OK, 1 failed, 2 missing", or the number of lines where none tells an outcome.
QString inWords(const ReportVerdict& verdict);

} // namespace zolt
