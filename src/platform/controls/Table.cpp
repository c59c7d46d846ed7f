#include "platform/controls/Table.h"

#include "platform/errors/Exceptions.h"

namespace zolt {

void Table::reloadData()
{
    ++reloads_;
    changed();
}

void Table::scrollRowToVisible(int row)
{
    if (rowToShow_.exchange(row) != row) changed();
}

QList<qsizetype> Table::selectedRows() const
{
    QList<qsizetype> rows = selectedRows_;
    const qsizetype count = source_ ? source_->numberOfRowsInTableView() : 0;
    rows.removeIf([count](qsizetype row) { return row >= count; });
    return rows;
}

qsizetype Table::selectedRow() const
{
    const QList<qsizetype> rows = selectedRows();
    return rows.isEmpty() ? -1 : rows.last();
}

void Table::setSelectedRows(const QList<qsizetype>& rows)
{
    selectedRows_ = rows;
    std::sort(selectedRows_.begin(), selectedRows_.end());
}

void Table::selectRows(const QList<qsizetype>& rows)
{
    const QList<qsizetype> before = selectedRows();
    setSelectedRows(rows);
    if (selectedRows() != before) performAction();
}

void Table::addTableColumn(const QString& header)
{
    {
        const std::lock_guard guard(mutex_);
        columns_.push_back({header});
    }
    changed();
}

void Table::removeTableColumnsBehind(int count)
{
    {
        const std::lock_guard guard(mutex_);
        if (columns_.size() <= std::size_t(count)) return;
        columns_.resize(std::size_t(count));
    }
    changed();
}

void Table::setColumnHeader(int column, const QString& header)
{
    {
        const std::lock_guard guard(mutex_);
        if (column < 0 || std::size_t(column) >= columns_.size())
            throw RangeException(
                QStringLiteral("column %1 beyond bounds, %2 columns").arg(column).arg(columns_.size()));
        columns_[std::size_t(column)].header = header;
    }
    changed();
}

} // namespace zolt
