#include "platform/controls/Table.h"
#include "ui/binding/Binders.h"
#include "ui/binding/OutletBinding.h"

#include <QAbstractItemView>
#include <QAbstractListModel>

namespace zolt {

namespace {

/// The rows of a table's data source, asked for when they are drawn.
class TableRows : public QAbstractListModel
{
public:
    TableRows(std::shared_ptr<Table> table, QObject* parent) : QAbstractListModel(parent), table_(std::move(table)) {}

    void reload()
    {
        if (reloads_ == table_->reloads()) return;
        beginResetModel();
        reloads_ = table_->reloads();
        rows_ = table_->dataSource() ? int(table_->dataSource()->numberOfRowsInTableView()) : 0;
        endResetModel();
    }
    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : rows_; }
    QVariant data(const QModelIndex& index, int role) const override
    {
        const TableDataSource* const source = table_->dataSource();
        if (role != Qt::DisplayRole || !source || index.row() >= source->numberOfRowsInTableView()) return {};
        return source->tableViewObjectValueForTableColumnRow(index.row()).replace(u'\n', u' ');
    }

private:
    const std::shared_ptr<Table> table_;
    unsigned reloads_ = unsigned(-1);
    int rows_ = 0;
};

} // namespace

void tellSelection(const QAbstractItemView& view, Table& table)
{
    QList<qsizetype> rows;
    for (const QModelIndex& index : view.selectionModel()->selectedRows())
        rows += index.row();
    std::sort(rows.begin(), rows.end());
    if (rows == table.selectedRows()) return;
    guarded("selection", [&] {
        table.setSelectedRows(rows);
        table.performAction();
    });
}

void bindWidget(QWidget& widget, const std::shared_ptr<Table>& model, const Changed& changed)
{
    auto& view = shownBy<QAbstractItemView>(widget);
    auto* const rows = new TableRows(model, &view);
    view.setModel(rows);
    const auto show = [rows](QAbstractItemView& shown, Table& table) {
        rows->reload();
        tellSelection(shown, table);
    };
    keepShown<Table>(
        view, model, [show, model](QAbstractItemView& shown, const Table&) { show(shown, *model); }, changed);
    QObject::connect(view.selectionModel(), &QItemSelectionModel::selectionChanged, &view,
                     [&view, model] { tellSelection(view, *model); });
}

} // namespace zolt
