#include "app/batch/JsonRows.h"

#include "app/batch/Console.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace zolt::batch {

using namespace Qt::StringLiterals;

void JsonRows::closed(const RunRow& row, const QStringList& outputs)
{
    print(stdout, line(row, outputs) + u'\n');
}

QString JsonRows::line(const RunRow& row, const QStringList& outputs)
{
    QJsonObject object{{u"title"_s, row.title},
                       {u"source"_s, row.source},
                       {u"outputs"_s, QJsonArray::fromStringList(outputs)},
                       {u"outcome"_s, inWords(row.outcome)},
                       {u"milliseconds"_s, row.milliseconds}};
    if (row.report) {
        object[u"report"_s] = *row.report;
        object[u"good"_s] = row.verdict.good;
        object[u"bad"_s] = row.verdict.bad;
        object[u"missing"_s] = row.verdict.missing;
        object[u"cause"_s] = row.verdict.cause;
    }
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

} // namespace zolt::batch
