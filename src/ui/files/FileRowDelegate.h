// Draws a row of a file list.
#pragma once

#include "ui/NameDelegate.h"

namespace zolt {

/// The style's own drawing with a little room between the lines, the folder quieter than the name. Main thread.
class FileRowDelegate : public NameDelegate
{
public:
    using NameDelegate::NameDelegate;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

} // namespace zolt
