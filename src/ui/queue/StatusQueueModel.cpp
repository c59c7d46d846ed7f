#include "ui/queue/StatusQueueModel.h"

#include "engine/ZOLTTask.h"
#include "ui/queue/QueueCommands.h"

namespace zolt {

using namespace Qt::StringLiterals;

bool StatusQueueModel::refresh()
{
    const int rows = int(queue_.numberOfRowsInTableView());
    const auto last = queue_.rowTask(rows_ - 1);
    const bool grown = rows_ == 0 || (last && last == last_.lock());
    if (grown && rows == rows_) return false;
    last_ = queue_.rowTask(rows - 1);
    if (grown) {
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

std::shared_ptr<ZOLTTask> StatusQueueModel::task(int row) const
{
    return queue_.rowTask(row);
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

QString StatusQueueModel::status(int row) const
{
    const auto task = queue_.rowTask(row);
    if (!task) return QString();
    if (queueCommands::isStopping(*task)) return u"Stopping when the tool ends"_s;
    const QString text = task->topTextField()->stringValue();
    // A tool that runs and has not told anything yet is not left to look like one that waits.
    return text == u"Waiting..." && task->isActive() ? u"Working..."_s : text;
}

QVariant StatusQueueModel::data(const QModelIndex& index, int role) const
{
    const bool asked = role == Qt::AccessibleTextRole || role == Qt::DisplayRole || role == Qt::ToolTipRole;
    const auto task = index.isValid() && asked ? queue_.rowTask(index.row()) : nullptr;
    if (!task) return {};
    const QString name = task->textField()->stringValue();
    if (role == Qt::ToolTipRole) return task->source().isEmpty() ? name : task->source();
    return u"%1: %2"_s.arg(name, status(index.row()));
}

} // namespace zolt
