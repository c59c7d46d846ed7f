#include "engine/Run.h"

#include "engine/ZOLTTask.h"
#include "platform/files/FileNames.h"
#include "platform/text/Counts.h"

namespace zolt {

using namespace Qt::StringLiterals;

QString nameOf(const ZOLTTask& task)
{
    const QString name = task.title().isEmpty() ? task.textField()->stringValue() : task.title();
    const QString file = readableName(path::lastComponent(task.source()));
    return name.contains(file) ? name : name + u": "_s + file;
}

Outcome outcomeOf(const ZOLTTask& task)
{
    if (task.cancelled()) return Outcome::Canceled;
    return task.error() ? Outcome::Failed : Outcome::Complete;
}

qsizetype Run::failedRows() const
{
    return std::count_if(rows.begin(), rows.end(), [](const RunRow& row) { return row.failed(); });
}

QString inWords(const Run& run)
{
    return u"%1 complete, %2 failed, %3 canceled, %4"_s.arg(grouped(run.complete), grouped(run.failed),
                                                            grouped(run.canceled), clockText(run.milliseconds));
}

QString inWords(Outcome outcome)
{
    static const QString words[] = {u"waiting"_s, u"running"_s, u"complete"_s, u"failed"_s, u"canceled"_s};
    return words[int(outcome)];
}

} // namespace zolt
