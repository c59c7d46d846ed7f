// Rows that show names.
#pragma once

#include "ui/PlainText.h"

#include <QStyledItemDelegate>

namespace zolt {

/// From right to left too, a name is drawn as it reads. Main thread.
class NameDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->text = inReadingOrder(option->text, option->direction);
    }
};

} // namespace zolt
