#include "ui/queue/StatusQueueView.h"

#include "ui/PlainText.h"
#include "ui/queue/QueueBar.h"
#include "ui/queue/QueueCommands.h"
#include "ui/queue/StatusQueueDelegate.h"
#include "ui/queue/StatusQueueModel.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QToolTip>

namespace zolt {

using namespace Qt::StringLiterals;

StatusQueueView::StatusQueueView(QWidget* parent) : QListView(parent)
{
    setItemDelegate(new StatusQueueDelegate(this));
    setUniformItemSizes(true); // ten thousand rows are laid out by asking one
    setSelectionMode(ExtendedSelection);
    setEditTriggers(NoEditTriggers);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setResizeMode(Adjust);
    setMouseTracking(true);
    setContextMenuPolicy(Qt::CustomContextMenu);
}

StatusQueueCell StatusQueueView::cellOf(const QModelIndex& index) const
{
    if (!index.isValid()) return {};
    return static_cast<const StatusQueueModel*>(model())->cell(index.row());
}

QModelIndex StatusQueueView::stopButtonAt(QPoint place) const
{
    const QModelIndex index = indexAt(place);
    const StatusQueueCell cell = cellOf(index);
    if (!cell.cancelButton() || cell.cancelButton()->isHidden()) return {};
    const QRectF button = StatusQueueDelegate::places(cell, visualRect(index), font(), layoutDirection()).cancelButton;
    return button.adjusted(-5, -5, 5, 5).contains(place) ? index
                                                         : QModelIndex(); // a little more than is drawn, to hit it
}

void StatusQueueView::stopRow(const QModelIndex& index)
{
    if (!index.isValid()) return;
    if (const auto task = static_cast<const StatusQueueModel*>(model())->task(index.row())) queueCommands::stop(task);
}

void StatusQueueView::mousePressEvent(QMouseEvent* event)
{
    pressed_ = event->button() == Qt::LeftButton ? stopButtonAt(event->position().toPoint()) : QModelIndex();
    if (!pressed_.isValid()) QListView::mousePressEvent(event);
}

void StatusQueueView::mouseReleaseEvent(QMouseEvent* event)
{
    if (!pressed_.isValid()) return QListView::mouseReleaseEvent(event);
    const QModelIndex pressed = std::exchange(pressed_, QPersistentModelIndex());
    if (stopButtonAt(event->position().toPoint()) == pressed) stopRow(pressed);
}

void StatusQueueView::keyPressEvent(QKeyEvent* event)
{
    if (!event->matches(QKeySequence::Delete)) return QListView::keyPressEvent(event);
    if (remove_) remove_();
}

bool StatusQueueView::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip) return QListView::viewportEvent(event);
    auto* const help = static_cast<QHelpEvent*>(event);
    const QModelIndex row = indexAt(help->pos());
    const bool onButton = stopButtonAt(help->pos()).isValid();
    const StatusQueueCell cell = cellOf(row);
    QToolTip::showText(help->globalPos(),
                       plainToolTip(onButton           ? cell.cancelButton()->toolTip()
                                    : cell.textField() ? row.data(Qt::ToolTipRole).toString()
                                                       : QString()),
                       this);
    return true;
}

QString StatusQueueView::visibleText() const
{
    QString text;
    const int rows = model() ? model()->rowCount() : 0;
    const QModelIndex top = indexAt(QPoint(1, 1));
    for (int row = top.isValid() ? top.row() : 0; row < rows; ++row) {
        const QModelIndex index = model()->index(row, 0);
        if (visualRect(index).top() > viewport()->height()) break;
        const StatusQueueCell cell = cellOf(index);
        if (!cell.textField()) break;
        const Colour colour = cell.textField()->textColour();
        const auto part = shownPart(*cell.progressIndicator(), StatusQueueDelegate::hasEnded(cell));
        const bool moves = !part && !cell.progressIndicator()->isHidden();
        text += u"%1\n%2\n%3 %4 %5 %6 %7\n"_s.arg(index.data().toString())
                    .arg(part.value_or(0.0))
                    .arg(moves ? movingStep() : 0)
                    .arg(cell.progressIndicator()->isHidden())
                    .arg(cell.cancelButton()->isHidden())
                    .arg(colour.red)
                    .arg(colour.green);
    }
    return text;
}

} // namespace zolt
