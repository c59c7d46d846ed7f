// A table's model: where its rows come from is its owner's; the table knows when to ask again and what to show.
#pragma once

#include "platform/controls/Control.h"
#include "platform/controls/Menu.h"

#include <QList>

#include <vector>

namespace zolt {

/// What a table shows. Called on the main thread.
class TableDataSource
{
public:
    virtual ~TableDataSource() = default;
    virtual qsizetype numberOfRowsInTableView() const = 0;
    /// The cell's text, or no text where the row draws itself. @param column  counted from 0
    virtual QString tableViewObjectValueForTableColumnRow(int column, qsizetype row) const = 0;
};

/// One column; a table has one without a header at first, which is as wide as the others leave it.
struct TableColumn
{
    QString header;
    bool operator==(const TableColumn&) const = default;
};

/// The headers of all columns of one table; a table without one shows none.
class TableHeader : public Control
{
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

    /// The rows that a person has selected, in order, as the view tells them; the action tells of a change. Rows that a
    /// reload takes away are not among them. Main thread.
    QList<qsizetype> selectedRows() const;
    qsizetype numberOfSelectedRows() const { return selectedRows().size(); }
    /// The last of the selected rows; -1 if none is.
    qsizetype selectedRow() const;
    bool isRowSelected(qsizetype row) const { return selectedRows().contains(row); }
    void setSelectedRows(const QList<qsizetype>& rows);
    /// What a person's selecting does: as setSelectedRows, and performs the action if it is another selection.
    void selectRows(const QList<qsizetype>& rows);

    /// The columns from the left. Any thread.
    std::vector<TableColumn> columns() const { return read(columns_); }
    void addTableColumn(const QString& header);
    /// Takes away all columns but the first so many.
    void removeTableColumnsBehind(int count);
    /// @throws RangeException if there is no such column
    void setColumnHeader(int column, const QString& header);
    /// Whether the headers are shown; at first there are none. Any thread.
    bool showsHeader() const { return headerView() != nullptr; }
    std::shared_ptr<TableHeader> headerView() const { return read(headerView_); }
    /// Puts the header on the table, or takes it off for none.
    void setHeaderView(std::shared_ptr<TableHeader> header) { write(headerView_, std::move(header)); }

    /// What its context menu offers beside what the view adds; none by default. Main thread.
    void setMenu(std::shared_ptr<const Menu> menu) { menu_ = std::move(menu); }
    const std::shared_ptr<const Menu>& menu() const { return menu_; }

    /// The table takes files dropped on it.
    bool acceptsFileDrops() const { return acceptsFileDrops_; }
    void registerForFileDrops() { setFlag(acceptsFileDrops_, true); }

private:
    const TableDataSource* source_ = nullptr;
    std::atomic<unsigned> reloads_ = 0;
    std::atomic<int> rowToShow_ = 0;
    std::atomic<bool> acceptsFileDrops_ = false;
    std::shared_ptr<TableHeader> headerView_;
    std::shared_ptr<const Menu> menu_;
    QList<qsizetype> selectedRows_;
    std::vector<TableColumn> columns_{TableColumn()};
};

} // namespace zolt
