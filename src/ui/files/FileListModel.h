// The rows of a tab's file list.
#pragma once

#include "platform/controls/Table.h"

#include <QAbstractTableModel>
#include <QHash>
#include <QSet>
#include <QStringList>

namespace zolt {

/// One row a file, in the list's order; shares the texts with the tab's own list. Main thread.
class FileListModel : public QAbstractTableModel
{
public:
    static constexpr int nameColumn = 0;

    explicit FileListModel(QObject* parent = nullptr) : QAbstractTableModel(parent) {}

    void setFiles(const QStringList& files);
    /// Takes over the table's columns: behind the names stand those that the tab itself has added, and last the
    /// folders.
    void setTable(const Table& table);
    int folderColumn() const { return columnCount() - 1; }
    /// Marks rows with a sign and a sentence. @param leftOut  rows that the next run leaves out
    void setMarks(const QHash<int, QString>& marks, const QSet<int>& leftOut);
    /// What the mark of a row says; empty for a row without one.
    QString mark(int row) const;
    /// True if any row has a sign.
    bool hasMarks() const { return !marks_.isEmpty() || !leftOut_.isEmpty(); }
    bool isLeftOut(int row) const { return leftOut_.contains(row); }
    const QStringList& files() const { return files_; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QString text(int column, int row) const;

    QStringList files_;
    const TableDataSource* source_ = nullptr;
    std::vector<TableColumn> columns_{TableColumn()};
    QHash<int, QString> marks_;
    QSet<int> leftOut_;
};

} // namespace zolt
