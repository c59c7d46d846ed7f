// Draws a row of the queue panel from its four controls.
#pragma once

#include "engine/StatusQueueCell.h"

#include <QStyledItemDelegate>

namespace zolt {

/// Main thread.
class StatusQueueDelegate : public QStyledItemDelegate
{
public:
    explicit StatusQueueDelegate(QObject* parent = nullptr) : QStyledItemDelegate(parent) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    /// The places of a row's controls within the rectangle that the view gives the row.
    static StatusQueueCell::Places places(const StatusQueueCell& cell, const QRect& row, const QFont& font,
                                          Qt::LayoutDirection direction = Qt::LeftToRight);
    /// Whether the row shows an outcome.
    static bool hasEnded(const StatusQueueCell& cell);
    /// Units of a row with the usual font; larger fonts make larger rows.
    static constexpr int rowHeight = 52;

private:
    static double scale(const QFont& font);
};

} // namespace zolt
