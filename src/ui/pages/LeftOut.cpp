#include "ui/pages/LeftOut.h"

namespace zolt {

void LeftOut::add(const QStringList& files, const QList<qsizetype>& rows)
{
    for (const qsizetype row : rows) {
        if (row < files.size()) paths_ += files[row];
    }
}

void LeftOut::keepOnly(const QStringList& files)
{
    if (!paths_.isEmpty()) paths_.intersect(QSet<QString>(files.begin(), files.end()));
}

QList<qsizetype> LeftOut::rowsIn(const QStringList& files) const
{
    QList<qsizetype> rows;
    if (paths_.isEmpty()) return rows;
    for (qsizetype row = 0; row < files.size(); ++row) {
        if (paths_.contains(files[row])) rows += row;
    }
    return rows;
}

} // namespace zolt
