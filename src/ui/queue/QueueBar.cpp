#include "ui/queue/QueueBar.h"

#include "platform/controls/ProgressIndicator.h"

#include <QApplication>
#include <QDateTime>

#include <cmath>

namespace zolt {

namespace {

constexpr qint64 milliseconds = 50; // a step of the movement
constexpr qint64 steps = 48;        // there and back
constexpr double movingPart = 0.25; // of the bar's width
constexpr int fine = 1000;

/// The filled piece of a bar, in parts of its width.
struct Filled
{
    double from;
    double to;
};

Filled filled(std::optional<double> part)
{
    if (part) return {0.0, *part};
    const double swing = 1.0 - std::abs(double(movingStep() % steps) / (steps / 2) - 1.0);
    return {swing * (1.0 - movingPart), swing * (1.0 - movingPart) + movingPart};
}

/// Without its corners, which looks rounded; a stroke around a rounded shape takes as long as all else in the row.
void drawFrame(QPainter& painter, const QRect& frame, const QColor& colour)
{
    const QRect across = frame.adjusted(1, 0, -1, 0), down = frame.adjusted(0, 1, 0, -1);
    painter.fillRect(across.left(), across.top(), across.width(), 1, colour);
    painter.fillRect(across.left(), across.bottom(), across.width(), 1, colour);
    painter.fillRect(down.left(), down.top(), 1, down.height(), colour);
    painter.fillRect(down.right(), down.top(), 1, down.height(), colour);
}

void drawPlain(QPainter& painter, const QRectF& place, Filled piece, const QColor& colour)
{
    drawFrame(painter, place.toRect(), colour);
    const QRectF inside = QRectF(place.toRect()).adjusted(3, 3, -3, -3);
    painter.fillRect(QRectF(inside.left() + piece.from * inside.width(), inside.top(),
                            (piece.to - piece.from) * inside.width(), inside.height()),
                     colour);
}

} // namespace

std::optional<double> shownPart(const ProgressIndicator& bar, bool ended)
{
    const auto reading = bar.reading();
    if (!reading) return ended ? std::optional(0.0) : std::nullopt;
    const double range = bar.maxValue() - bar.minValue();
    return range > 0 ? std::clamp((*reading - bar.minValue()) / range, 0.0, 1.0) : 0.0;
}

qint64 movingStep()
{
    return QDateTime::currentMSecsSinceEpoch() / milliseconds;
}

void drawQueueBar(QPainter& painter, const QRectF& place, std::optional<double> part, const QStyleOptionViewItem& row)
{
    Filled piece = filled(part);
    if (row.direction == Qt::RightToLeft) piece = {1.0 - piece.to, 1.0 - piece.from};
    if (row.state & QStyle::State_Selected)
        return drawPlain(painter, place, piece, row.palette.color(QPalette::HighlightedText));
    if (!part) return drawPlain(painter, place, piece, row.palette.color(QPalette::Highlight));
    QStyleOptionProgressBar option;
    option.initFrom(row.widget);
    option.state |= QStyle::State_Horizontal;
    option.rect = place.toRect();
    option.textVisible = false;
    option.minimum = 0;
    option.maximum = fine;
    option.progress = int(*part * fine);
    row.widget->style()->drawControl(QStyle::CE_ProgressBar, &option, &painter, row.widget);
}

} // namespace zolt
