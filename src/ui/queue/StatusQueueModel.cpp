#include "ui/queue/StatusQueueModel.h"

#include "engine/ZOLTTaskQueue.h"

namespace zolt {

using namespace Qt::StringLiterals;

bool StatusQueueModel::refresh()
{
    const int rows = int(queue_.numberOfRowsInTableView());
    if (rows == rows_) return false;
    if (rows > rows_) {
        beginInsertRows({}, rows_, rows - 1); // new rows come at the end
        rows_ = rows;
        endInsertRows();
    } else {
        beginResetModel(); // a sweep takes rows from anywhere
        rows_ = rows;
        endResetModel();
    }
    return true;
}

StatusQueueCell StatusQueueModel::cell(int row) const
{
    StatusQueueCell cell;
    queue_.tableViewWillDisplayCellForTableColumnRow(cell, row);
    return cell;
}

int StatusQueueModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : rows_;
}

QVariant StatusQueueModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || (role != Qt::AccessibleTextRole && role != Qt::DisplayRole)) return {};
    const StatusQueueCell row = cell(index.row());
    if (!row.textField()) return {};
    return u"%1: %2"_s.arg(row.textField()->stringValue(), row.topTextField()->stringValue());
}

} // namespace zolt
