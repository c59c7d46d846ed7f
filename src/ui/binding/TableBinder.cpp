#include "platform/controls/ScrollView.h"
#include "platform/controls/Table.h"
#include "ui/SelectedRows.h"
#include "ui/binding/Binders.h"
#include "ui/binding/OutletBinding.h"

#include <QAbstractTableModel>
#include <QTreeView>

namespace zolt {

namespace {

/// The rows of a table's data source, asked for when they are drawn.
class TableRows : public QAbstractTableModel
{
public:
    TableRows(std::shared_ptr<Table> table, QObject* parent) : QAbstractTableModel(parent), table_(std::move(table)) {}

    void reload()
    {
        if (reloads_ == table_->reloads() && columns_ == table_->columns()) return;
        beginResetModel();
        reloads_ = table_->reloads();
        rows_ = table_->dataSource() ? int(table_->dataSource()->numberOfRowsInTableView()) : 0;
        columns_ = table_->columns();
        endResetModel();
    }
    int columnCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : int(columns_.size());
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section >= columnCount()) return {};
        return columns_[std::size_t(section)].header;
    }
    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : rows_; }
    QVariant data(const QModelIndex& index, int role) const override
    {
        const TableDataSource* const source = table_->dataSource();
        if (role != Qt::DisplayRole || !source || index.row() >= source->numberOfRowsInTableView()) return {};
        return source->tableViewObjectValueForTableColumnRow(index.column(), index.row()).replace(u'\n', u' ');
    }

private:
    const std::shared_ptr<Table> table_;
    unsigned reloads_ = unsigned(-1);
    int rows_ = 0;
    std::vector<TableColumn> columns_;
};

} // namespace

void tellSelection(const QAbstractItemView& view, Table& table)
{
    guarded("selection", [&] { table.selectRows(selectedRows(view)); });
}

void bindWidget(QWidget& widget, const std::shared_ptr<Table>& model, const Changed& changed)
{
    auto& view = shownBy<QAbstractItemView>(widget);
    auto* const rows = new TableRows(model, &view);
    view.setModel(rows);
    const auto show = [rows](QAbstractItemView& shown, Table& table) {
        rows->reload();
        if (auto* const tree = qobject_cast<QTreeView*>(&shown)) tree->setHeaderHidden(!table.showsHeader());
        tellSelection(shown, table);
    };
    keepShown<Table>(
        view, model, [show, model](QAbstractItemView& shown, const Table&) { show(shown, *model); }, changed);
    QObject::connect(view.selectionModel(), &QItemSelectionModel::selectionChanged, &view,
                     [&view, model] { tellSelection(view, *model); });
}

void bindWidget(QWidget& widget, const std::shared_ptr<ScrollView>& model, const Changed& changed)
{
    const auto show = [](QAbstractScrollArea& shown, const ScrollView& view) {
        if (!view.frame().isEmpty()) shown.setGeometry(view.frame().toAlignedRect());
        shown.viewport()->update();
    };
    keepShown<ScrollView>(shownBy<QAbstractScrollArea>(widget), model, show, changed);
}

} // namespace zolt
