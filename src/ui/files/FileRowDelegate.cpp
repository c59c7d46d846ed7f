#include "ui/files/FileRowDelegate.h"

#include "ui/files/FileListModel.h"

namespace zolt {

namespace {

constexpr int room = 6; // units added to a line's height
constexpr float quiet = 0.75F;

} // namespace

QSize FileRowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    return QStyledItemDelegate::sizeHint(option, index) + QSize(0, room);
}

void FileRowDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (index.column() != FileListModel::FolderColumn) return;
    QColor colour = option->palette.color(QPalette::Text);
    colour.setAlphaF(quiet);
    option->palette.setColor(QPalette::Text, colour);
}

} // namespace zolt
