#include "ui/runs/RunTexts.h"

#include "platform/text/Counts.h"

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

QString quoted(QString value)
{
    return u'"' + value.replace(u'"', u"\"\""_s) + u'"';
}

QString csvLine(const QStringList& values)
{
    QStringList all;
    for (const QString& value : values)
        all += quoted(value);
    return all.join(u',') + u"\r\n"_s;
}

} // namespace

QString shortWords(const Run& run)
{
    const qsizetype failed = run.failedRows();
    const qsizetype good = run.ended() - run.canceled - failed;
    QStringList parts;
    if (good > 0 || run.ended() == 0) parts += grouped(good) + u" OK"_s;
    if (failed > 0) parts += grouped(failed) + u" failed"_s;
    if (run.canceled > 0) parts += grouped(run.canceled) + u" canceled"_s;
    return parts.join(u", "_s) + u", "_s + clockText(run.milliseconds);
}

QString reportsOf(const Run& run)
{
    QString text;
    for (const RunRow& row : run.rows) {
        if (row.report) text += row.title + u"\n\n"_s + *row.report + u"\n\n"_s;
    }
    return text;
}

QString runAsText(const Run& run)
{
    QString text = run.begunAt.toString(Qt::ISODate) + u"  "_s + inWords(run) + u"\n\n"_s;
    for (const RunRow& row : run.rows) {
        text += u"%1  %2  %3\n"_s.arg(inWords(row.outcome), -9)
                    .arg(clockText(row.milliseconds), 7)
                    .arg(row.source.isEmpty() ? row.title : row.source);
    }
    const QString reports = reportsOf(run);
    return reports.isEmpty() ? text : text + u'\n' + reports;
}

QString runAsCsv(const Run& run)
{
    QString text = csvLine({u"name"_s, u"outcome"_s, u"seconds"_s, u"source"_s, u"cause"_s});
    for (const RunRow& row : run.rows) {
        text += csvLine({row.title, inWords(row.outcome), QString::number(double(row.milliseconds) / 1000.0),
                         row.source, row.verdict.cause});
    }
    return text;
}

} // namespace zolt
