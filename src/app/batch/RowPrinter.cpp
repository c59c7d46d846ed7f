#include "app/batch/RowPrinter.h"

#include "app/batch/Console.h"
#include "platform/files/FileNames.h"

namespace zolt::batch {

using namespace Qt::StringLiterals;

namespace {

/// The row's title, with the file behind it where the title names none.
QString rowName(const RunRow& row)
{
    const QString file = readableName(path::lastComponent(row.source));
    return row.source.isEmpty() || row.title == file ? row.title : row.title + u": "_s + file;
}

} // namespace

QString outcomeLine(const RunRow& row)
{
    static const QString words[] = {u"Complete"_s, u"Error"_s, u"Canceled"_s};
    return words[int(row.outcome) - int(Outcome::Complete)] + u"  "_s + onOneLine(rowName(row));
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
