#include "ui/files/FileListModel.h"

#include "platform/text/Text.h"
#include "ui/Symbols.h"

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

QString toolTip(const QString& file, const QString& said)
{
    return said.isEmpty() ? file : file + u'\n' + said;
}

} // namespace

void FileListModel::setFiles(const QStringList& files)
{
    beginResetModel();
    files_ = files;
    marks_.clear();
    leftOut_.clear();
    endResetModel();
}

void FileListModel::setMarks(const QHash<int, QString>& marks, const QSet<int>& leftOut)
{
    if (marks == marks_ && leftOut == leftOut_) return;
    marks_ = marks;
    leftOut_ = leftOut;
    if (!files_.isEmpty()) Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
}

QString FileListModel::mark(int row) const
{
    return isLeftOut(row) ? u"Left out of the next run"_s : marks_.value(row);
}

int FileListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(files_.size());
}

int FileListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant FileListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= files_.size()) return {};
    const QString& file = files_[index.row()];
    const QString said = mark(index.row());
    if (role == Qt::ToolTipRole || role == Qt::AccessibleDescriptionRole) return toolTip(file, said);
    if (role == Qt::DecorationRole && index.column() == NameColumn && !said.isEmpty())
        return symbolIcon(isLeftOut(index.row()) ? u"bar"_s : u"dialog-warning"_s);
    if (role != Qt::DisplayRole) return {};
    // A name may hold line ends; a row shows one line.
    return (index.column() == NameColumn ? path::lastComponent(file) : path::deletingLastComponent(file))
        .replace(u'\n', u' ');
}

QVariant FileListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return section == NameColumn ? u"Name"_s : u"Folder"_s;
}

} // namespace zolt
