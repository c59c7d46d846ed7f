#include "ui/pages/ChoicesArea.h"

#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionSpinBox>

namespace zolt {

namespace {

constexpr int narrowest = 220; // units; below it the choices scroll sideways too
constexpr int lowest = 120;
constexpr int headingRoom = 8; // units above a heading
constexpr int gap = 6;         // units between the choices and their scroll bar

/// A choice that the wheel would change; a scroll bar is none.
bool turnsWithTheWheel(const QWidget& widget)
{
    if (qobject_cast<const QScrollBar*>(&widget)) return false;
    return qobject_cast<const QAbstractSlider*>(&widget) || qobject_cast<const QComboBox*>(&widget) ||
           qobject_cast<const QAbstractSpinBox*>(&widget);
}

void makeHeading(QLabel& label)
{
    QFont font = label.font();
    font.setBold(true);
    label.setFont(font);
    label.setIndent(0);
    label.setContentsMargins(0, headingRoom, 0, 0);
}

/// Without the number, which stands elsewhere, and without its room.
void leaveArrows(QWidget& spinBox)
{
    constexpr int frame = 4; // units on both sides together
    spinBox.findChild<QLineEdit*>()->hide();
    QStyleOptionSpinBox option;
    option.initFrom(&spinBox);
    option.rect = QRect(QPoint(), spinBox.sizeHint());
    const QStyle& style = *spinBox.style();
    const QRect arrow = style.subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxUp, &spinBox);
    spinBox.setFixedWidth(arrow.width() + frame);
}

/// A slider looks the same whether it can be moved or not: its label tells.
void showOnLabels(const QWidget& choice)
{
    for (QLabel* const label : choice.parentWidget()->findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (label->buddy() == &choice) label->setEnabled(choice.isEnabled());
    }
}

} // namespace

ChoicesArea::ChoicesArea(QWidget* parent) : QScrollArea(parent)
{
    setWidgetResizable(true);
    setFrameShape(NoFrame);
    setFocusPolicy(Qt::NoFocus);
    verticalScrollBar()->installEventFilter(this);
}

QWidget& ChoicesArea::fill(void (*setUp)(QWidget&))
{
    auto* const choices = new QWidget;
    setUp(*choices);
    for (QWidget* const child : choices->findChildren<QWidget*>())
        tend(*child);
    setWidget(choices);
    keepGap(false);
    // The page's own colour shows through.
    choices->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
    return *choices;
}

void ChoicesArea::tend(QWidget& child)
{
    auto* const label = qobject_cast<QLabel*>(&child);
    if (label && label->property("heading").toBool()) makeHeading(*label);
    if (auto* const line = qobject_cast<QLineEdit*>(&child); line && !line->property("takesFolders").toBool())
        line->setAcceptDrops(false); // a file that falls here is for the list
    if (label && label->buddy()) label->buddy()->installEventFilter(this);
    if (child.property("arrowsOnly").toBool()) leaveArrows(child);
    if (!turnsWithTheWheel(child)) return;
    child.setFocusPolicy(Qt::StrongFocus);
    child.installEventFilter(this);
}

/// One of the choices, without the keyboard; the area's own scroll bars come here, too.
bool ChoicesArea::isPassedBy(const QObject& watched) const
{
    const auto* const control = qobject_cast<const QWidget*>(&watched);
    return control && widget() && widget()->isAncestorOf(control) && !control->hasFocus();
}

void ChoicesArea::keepGap(bool scrolls)
{
    if (!widget() || !widget()->layout()) return;
    const int room = scrolls ? gap : 0;
    widget()->layout()->setContentsMargins(isRightToLeft() ? room : 0, 0, isRightToLeft() ? 0 : room, 0);
}

bool ChoicesArea::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == verticalScrollBar() && event->type() == QEvent::Show) keepGap(true);
    if (watched == verticalScrollBar() && event->type() == QEvent::Hide) keepGap(false);
    if (event->type() == QEvent::EnabledChange) showOnLabels(*static_cast<QWidget*>(watched));
    if (event->type() == QEvent::Wheel && isPassedBy(*watched)) {
        event->ignore();
        return true;
    }
    return QScrollArea::eventFilter(watched, event);
}

QSize ChoicesArea::sizeHint() const
{
    if (!widget()) return QScrollArea::sizeHint();
    const QSize content = widget()->minimumSizeHint();
    const QMargins margins = widget()->layout() ? widget()->layout()->contentsMargins() : QMargins();
    const int bar = gap + verticalScrollBar()->sizeHint().width(); // kept free, so that nothing moves when it comes
    return {content.width() - margins.left() - margins.right() + bar, content.height()};
}

QSize ChoicesArea::minimumSizeHint() const
{
    return {std::min(sizeHint().width(), std::max(narrowest, window()->width() / 2)), lowest};
}

} // namespace zolt
