// The rows of a run in a list.
#pragma once

#include "engine/Run.h"

#include <QAbstractTableModel>

#include <vector>

namespace zolt {

/// Which rows of a run a person wants to see.
enum class RunFilter { All, Failed, Reports, Canceled };

/// Main thread. The run outlives what is asked of this object.
class RunRowsModel : public QAbstractTableModel
{
public:
    enum Column { NameColumn, OutcomeColumn, TimeColumn, FolderColumn, ColumnCount };

    using QAbstractTableModel::QAbstractTableModel;

    /// Shows the rows of the run that pass the filter. @param run  nullptr for none
    void show(const Run* run, RunFilter filter);
    /// Takes over what has come since.
    void refresh();
    const RunRow* row(int index) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    const Run* run_ = nullptr;
    RunFilter filter_ = RunFilter::All;
    std::vector<const RunRow*> rows_;
};

/// Whether the row passes the filter.
bool passes(const RunRow& row, RunFilter filter);

} // namespace zolt
