#include "ui/runs/RunRowsModel.h"

#include "platform/files/FileNames.h"
#include "platform/text/Counts.h"
#include "ui/PlainText.h"
#include "ui/Symbols.h"

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

QString signOf(const RunRow& row)
{
    if (row.failed()) return u"cross"_s;
    if (row.outcome == Outcome::Complete) return u"tick"_s;
    return row.outcome == Outcome::Canceled ? u"bar"_s : QString();
}

QString outcomeOf(const RunRow& row)
{
    const bool onlyReport = row.outcome == Outcome::Complete && row.verdict.failed();
    return onlyReport ? inWords(row.verdict) : inWords(row.outcome);
}

QString text(const RunRow& row, int column)
{
    switch (column) {
    case RunRowsModel::NameColumn:
        return QString(row.title).replace(u'\n', u' ');
    case RunRowsModel::OutcomeColumn:
        return outcomeOf(row);
    case RunRowsModel::TimeColumn:
        return row.milliseconds > 0 ? clockText(row.milliseconds) : QString();
    default:
        return readableName(path::deletingLastComponent(row.source)).replace(u'\n', u' ');
    }
}

} // namespace

bool passes(const RunRow& row, RunFilter filter)
{
    switch (filter) {
    case RunFilter::Failed:
        return row.failed();
    case RunFilter::Reports:
        return row.report.has_value();
    case RunFilter::Canceled:
        return row.outcome == Outcome::Canceled;
    case RunFilter::All:
        break;
    }
    return true;
}

void RunRowsModel::show(const Run* run, RunFilter filter)
{
    run_ = run;
    filter_ = filter;
    refresh();
}

void RunRowsModel::refresh()
{
    std::vector<const RunRow*> rows;
    if (run_) {
        for (const RunRow& row : run_->rows) {
            if (passes(row, filter_)) rows.push_back(&row);
        }
    }
    if (rows == rows_) { // the same rows, which may stand elsewhere by now
        if (!rows_.empty()) Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
        return;
    }
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
}

const RunRow* RunRowsModel::row(int index) const
{
    return index >= 0 && std::size_t(index) < rows_.size() ? rows_[std::size_t(index)] : nullptr;
}

int RunRowsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(rows_.size());
}

int RunRowsModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant RunRowsModel::data(const QModelIndex& index, int role) const
{
    const RunRow* const each = row(index.row());
    if (!each) return {};
    if (role == Qt::DecorationRole && index.column() == NameColumn) return symbolIcon(signOf(*each));
    if (role == Qt::ToolTipRole) return plainToolTip(each->source.isEmpty() ? each->title : each->source);
    return role == Qt::DisplayRole ? text(*each, index.column()) : QVariant();
}

QVariant RunRowsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    static const QStringList headers{u"Name"_s, u"Outcome"_s, u"Time"_s, u"Folder"_s};
    return orientation == Qt::Horizontal && role == Qt::DisplayRole ? headers.value(section) : QVariant();
}

} // namespace zolt
