// What a report amounts to: which of its lines are good or bad news, and why something failed. No state; any thread.
#pragma once

#include <QSet>
#include <QString>
#include <QStringList>
#include <QStringView>

namespace zolt {

/// What is known of a report beside its text.
struct ReportNotes
{
    QSet<QString> missing; ///< those of its lines that are about a file which is not there, whatever they say
    int signal = 0;        ///< what killed a tool that failed; 0 for none
    QStringList
        faults; ///< what is wrong with outputs and stands in no line: each counts as bad, the first is the cause
};

enum class LineVerdict {
    Other,  ///< says nothing of an outcome
    Good,   ///< "a.flac : OK"
    Bad,    ///< a failure or a mismatch
    Missing ///< a file that is not there
};

/// How a line of a tool's own text reads. Each failure has one line that counts as bad; what a tool says around it,
/// such as its advice, does not.
LineVerdict verdictOfLine(QStringView line);
LineVerdict verdictOfLine(QStringView line, const ReportNotes& notes);

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
ReportVerdict verdictOf(const QString& report, const ReportNotes& notes = {});

/// "11 OK, 1 failed, 2 missing", or the number of lines where none tells an outcome.
QString inWords(const ReportVerdict& verdict);

} // namespace zolt
