#include "ui/files/FileRowDelegate.h"

#include "ui/files/FileListModel.h"

namespace zolt {

namespace {

constexpr int room = 6; // units added to a line's height
constexpr float quiet = 0.75F;

} // namespace

QSize FileRowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    // Of the line alone: a sign that comes to a row leaves its height.
    return {QStyledItemDelegate::sizeHint(option, index).width(), option.fontMetrics.height() + room};
}

void FileRowDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    NameDelegate::initStyleOption(option, index);
    const auto* const model = static_cast<const FileListModel*>(index.model());
    // Rows without a sign keep its room beside those with one, so that all names begin at one edge.
    if (index.column() == FileListModel::nameColumn && model->hasMarks())
        option->features |= QStyleOptionViewItem::HasDecoration;
    if (index.column() != model->folderColumn() && !model->isLeftOut(index.row())) return;
    QColor colour = option->palette.color(QPalette::Text);
    colour.setAlphaF(quiet);
    option->palette.setColor(QPalette::Text, colour);
}

} // namespace zolt
