#include "ui/files/FileListModel.h"

#include "platform/text/Text.h"

namespace zolt {

using namespace Qt::StringLiterals;

void FileListModel::setFiles(const QStringList& files)
{
    beginResetModel();
    files_ = files;
    endResetModel();
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
    if (role == Qt::ToolTipRole || role == Qt::AccessibleDescriptionRole) return file;
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
