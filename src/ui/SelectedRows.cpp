#include "ui/SelectedRows.h"

#include <QAbstractItemView>

namespace zolt {

QList<qsizetype> selectedRows(const QAbstractItemView& view)
{
    QList<qsizetype> rows;
    if (!view.selectionModel()) return rows;
    // Not by the selection's own rows: it would look for each of them in all its ranges.
    for (const QItemSelectionRange& range : view.selectionModel()->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows += row;
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

} // namespace zolt
