// A table's model: where its rows come from is its owner's; the table knows when to ask again and what to show.
#pragma once

#include "platform/controls/Control.h"

#include <QList>

namespace zolt {

/// What a table shows. Called on the main thread.
class TableDataSource
{
public:
    virtual ~TableDataSource() = default;
    virtual qsizetype numberOfRowsInTableView() const = 0;
    /// The row's text, or no text where the row draws itself.
    virtual QString tableViewObjectValueForTableColumnRow(qsizetype row) const = 0;
};

class Table : public Control
{
public:
    /// @param source  outlives the table, or is taken away before it goes
    void setDataSource(const TableDataSource* source) { source_ = source; }
    const TableDataSource* dataSource() const { return source_; }

    /// Everything is to be asked for again. Any thread.
    void reloadData();
    /// Counts the reloads, so that a view knows whether it has to ask. Any thread.
    unsigned reloads() const { return reloads_; }

    /// Asks the view to show a row; a row past the end does no harm. Any thread.
    void scrollRowToVisible(int row);
    int rowToShow() const { return rowToShow_; }

    /// Rows a person has selected, kept by the view. Main thread.
    const QList<qsizetype>& selectedRows() const { return selectedRows_; }
    void setSelectedRows(const QList<qsizetype>& rows) { selectedRows_ = rows; }

    /// The table takes files dropped on it.
    bool acceptsFileDrops() const { return acceptsFileDrops_; }
    void registerForFileDrops() { setFlag(acceptsFileDrops_, true); }

private:
    const TableDataSource* source_ = nullptr;
    std::atomic<unsigned> reloads_ = 0;
    std::atomic<int> rowToShow_ = 0;
    std::atomic<bool> acceptsFileDrops_ = false;
    QList<qsizetype> selectedRows_;
};

} // namespace zolt
