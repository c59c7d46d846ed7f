// The rows of a tab's file list.
#pragma once

#include <QAbstractTableModel>
#include <QHash>
#include <QSet>
#include <QStringList>

namespace zolt {

/// One row a file, in the list's order; shares the texts with the tab's own list. Main thread.
class FileListModel : public QAbstractTableModel
{
public:
    enum Column { NameColumn, FolderColumn, ColumnCount };

    explicit FileListModel(QObject* parent = nullptr) : QAbstractTableModel(parent) {}

    void setFiles(const QStringList& files);
    /// Marks rows with a sign and a sentence. @param leftOut  rows that the next run leaves out
    void setMarks(const QHash<int, QString>& marks, const QSet<int>& leftOut);
    /// What the mark of a row says; empty for a row without one.
    QString mark(int row) const;
    bool isLeftOut(int row) const { return leftOut_.contains(row); }
    const QStringList& files() const { return files_; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QStringList files_;
    QHash<int, QString> marks_;
    QSet<int> leftOut_;
};

} // namespace zolt
