#include "app/batch/RowPrinter.h"

#include "app/batch/Console.h"
#include "engine/ZOLTTask.h"

namespace zolt::batch {

using namespace Qt::StringLiterals;

Outcome outcomeOf(const ZOLTTask& task)
{
    if (task.cancelled()) return Outcome::Canceled;
    return task.error() ? Outcome::Error : Outcome::Complete;
}

QString outcomeLine(Outcome outcome, const QString& title)
{
    static const QString words[] = {u"Complete"_s, u"Error"_s, u"Canceled"_s};
    return words[int(outcome)] + u"  "_s + onOneLine(title);
}

void RowPrinter::note(const QString& text)
{
    complain(text);
}

void LineRows::ended(const std::shared_ptr<ZOLTTask>& task, Outcome outcome)
{
    print(stdout, outcomeLine(outcome, task->title()) + u'\n');
}

} // namespace zolt::batch
