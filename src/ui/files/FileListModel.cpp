#include "ui/files/FileListModel.h"

#include "platform/files/FileNames.h"
#include "platform/text/Text.h"
#include "ui/PlainText.h"
#include "ui/Symbols.h"

#include <QDateTime>
#include <QLocale>

#include <sys/stat.h>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

/// Where the file lies and what the disk knows of it.
QStringList factsOf(const QString& file)
{
    struct stat facts = {};
    if (::stat(bytesOfName(file).constData(), &facts) != 0) return {file, u"This file is not there"_s};
    const QLocale locale;
    const QDateTime changed = QDateTime::fromSecsSinceEpoch(facts.st_mtime);
    return {file, u"%1, changed %2"_s.arg(locale.formattedDataSize(facts.st_size, 1, QLocale::DataSizeSIFormat),
                                          locale.toString(changed, QLocale::ShortFormat))};
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
    if (!files_.isEmpty()) Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

QString FileListModel::mark(int row) const
{
    return isLeftOut(row) ? u"Left out of the next run"_s : marks_.value(row);
}

void FileListModel::setTable(const Table& table)
{
    source_ = table.dataSource();
    if (columns_ == table.columns()) return;
    beginResetModel();
    columns_ = table.columns();
    endResetModel();
}

int FileListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(files_.size());
}

int FileListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(columns_.size()) + 1;
}

QVariant FileListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= files_.size()) return {};
    const QString& file = files_[index.row()];
    const QString said = mark(index.row());
    if (role == Qt::AccessibleDescriptionRole) return readableName(said.isEmpty() ? file : said + u'\n' + file);
    if (role == Qt::ToolTipRole) return plainToolTip((factsOf(file) + QStringList(said)).join(u'\n').trimmed());
    if (role == Qt::DecorationRole && index.column() == nameColumn && !said.isEmpty())
        return symbolIcon(isLeftOut(index.row()) ? u"bar"_s : u"dialog-warning"_s);
    if (role != Qt::DisplayRole) return {};
    // A name may hold line ends; a row shows one line.
    return readableName(text(index.column(), index.row())).replace(u'\n', u' ');
}

QString FileListModel::text(int column, int row) const
{
    if (column == nameColumn) return path::lastComponent(files_[row]);
    if (column == folderColumn()) return path::deletingLastComponent(files_[row]);
    const bool there = source_ && row < source_->numberOfRowsInTableView();
    return there ? source_->tableViewObjectValueForTableColumnRow(column, row) : QString();
}

QVariant FileListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    if (section == folderColumn()) return u"Folder"_s;
    const QString header = columns_[std::size_t(section)].header;
    return section == nameColumn && header.isEmpty() ? u"Name"_s : header;
}

} // namespace zolt
