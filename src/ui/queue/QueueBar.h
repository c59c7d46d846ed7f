// The bar of a queue row.
#pragma once

#include <QPainter>
#include <QStyleOptionViewItem>

#include <optional>

namespace zolt {

class ProgressIndicator;

/// How far the bar is, from 0 to 1: its last reading, whatever pieces without a number came since; absent while the
/// tool has told none, and then the bar moves, so that nobody takes it for done. The bar of a row that has ended never
/// moves. Any thread.
std::optional<double> shownPart(const ProgressIndicator& bar, bool ended = false);

/// Which step of its movement a bar without a reading shows now; another number means another picture. Main thread.
qint64 movingStep();

/// Draws the bar, in the selection's own colours on a selected row. Main thread.
/// @param part  as shownPart has it
void drawQueueBar(QPainter& painter, const QRectF& place, std::optional<double> part, const QStyleOptionViewItem& row);

} // namespace zolt
