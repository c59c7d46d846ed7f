#include "app/batch/RowPrinter.h"

#include "app/batch/Console.h"

namespace zolt::batch {

using namespace Qt::StringLiterals;

QString outcomeLine(const RunRow& row)
{
    static const QString words[] = {u"Complete"_s, u"Error"_s, u"Canceled"_s};
    return words[int(row.outcome) - int(Outcome::Complete)] + u"  "_s + onOneLine(row.title);
}

void RowPrinter::note(const QString& text)
{
    complain(text);
}

void LineRows::ended(const RunRow& row)
{
    print(stdout, outcomeLine(row) + u'\n');
}

} // namespace zolt::batch
