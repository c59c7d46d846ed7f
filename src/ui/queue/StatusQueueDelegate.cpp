#include "ui/queue/StatusQueueDelegate.h"

#include "ui/OutcomeColours.h"
#include "ui/Symbols.h"
#include "ui/queue/QueueBar.h"
#include "ui/queue/StatusQueueModel.h"

#include <QApplication>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

constexpr double usualLine = 18.0; // units of the name's line
constexpr double smallText = 0.85; // of the name's size
constexpr int margin = 6;          // units left of the name

/// The sign that says the outcome without colour; none while the row waits or runs.
QString signOf(const StatusQueueCell& cell)
{
    const Colour colour = cell.textField()->textColour();
    if (colour == Colour::success()) return u"tick"_s;
    if (!(colour == Colour::failure())) return QString();
    return cell.topTextField()->stringValue() == u"Error" ? u"cross"_s : u"bar"_s;
}

QString oneLine(QString text)
{
    return text.replace(u'\n', u' ');
}

void drawText(QPainter& painter, const QRectF& place, const QString& text, const QFont& font, const QColor& colour,
              Qt::LayoutDirection direction)
{
    painter.setLayoutDirection(Qt::LayoutDirectionAuto); // a name goes by its letters, its place by the window
    const auto side = int(QStyle::visualAlignment(direction, Qt::AlignLeft | Qt::AlignVCenter));
    painter.setFont(font);
    painter.setPen(colour);
    const QString shown = QFontMetricsF(font).elidedText(oneLine(text), Qt::ElideRight, place.width());
    painter.drawText(place, side | int(Qt::TextSingleLine), shown);
}

} // namespace

double StatusQueueDelegate::scale(const QFont& font)
{
    return std::max(1.0, QFontMetricsF(font).height() / usualLine);
}

QSize StatusQueueDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const
{
    return {0, qRound(rowHeight * scale(option.font))};
}

StatusQueueCell::Places StatusQueueDelegate::places(const StatusQueueCell& cell, const QRect& row, const QFont& font,
                                                    Qt::LayoutDirection direction)
{
    const double factor = scale(font);
    auto places = cell.drawInteriorWithFrameInView(QRectF(margin, 0, row.width() / factor, row.height() / factor));
    // The status line is placed by its top edge; it may use the rest of the row, so that no letter is cut.
    places.topTextField.setBottom(row.height() / factor - 1);
    for (QRectF* place : {&places.progressIndicator, &places.textField, &places.topTextField, &places.cancelButton}) {
        *place = QRectF(place->topLeft() * factor, place->size() * factor).translated(row.topLeft());
        if (direction == Qt::RightToLeft) place->moveLeft(row.left() + row.right() + 1 - place->right());
    }
    return places;
}

bool StatusQueueDelegate::hasEnded(const StatusQueueCell& cell)
{
    return !signOf(cell).isEmpty();
}

void StatusQueueDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem background = option;
    initStyleOption(&background, index);
    background.text.clear();
    option.widget->style()->drawControl(QStyle::CE_ItemViewItem, &background, painter, option.widget);

    const auto* const model = static_cast<const StatusQueueModel*>(index.model());
    const StatusQueueCell cell = model->cell(index.row());
    if (!cell.textField()) return;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const bool selected = option.state & QStyle::State_Selected;
    const auto places = StatusQueueDelegate::places(cell, option.rect, option.font, option.direction);
    const QColor plain = option.palette.color(selected ? QPalette::HighlightedText : QPalette::Text);
    const QColor outcome = selected ? plain : shownColour(cell.textField()->textColour(), option.palette);
    QFont bold = option.font;
    bold.setBold(cell.textField()->style().bold);
    QFont small = option.font;
    small.setPointSizeF(option.font.pointSizeF() * smallText);
    drawText(*painter, places.textField, cell.textField()->stringValue(), bold, outcome, option.direction);
    drawText(*painter, places.topTextField, model->status(index.row()), small, plain, option.direction);
    const auto part = shownPart(*cell.progressIndicator(), hasEnded(cell));
    const bool nothingDone = hasEnded(cell) && part == 0.0; // an empty bar would say no more
    if (!cell.progressIndicator()->isHidden() && !nothingDone)
        drawQueueBar(*painter, places.progressIndicator, part, option);
    if (!cell.cancelButton()->isHidden())
        paintSymbol(*painter, u"process-stop"_s, places.cancelButton, plain);
    else if (const QString sign = signOf(cell); !sign.isEmpty())
        paintSymbol(*painter, sign, places.cancelButton, outcome);
    painter->fillRect(option.rect.left(), option.rect.bottom(), option.rect.width(), 1,
                      option.palette.color(QPalette::Midlight));
    painter->restore();
}

} // namespace zolt
