#include "ui/InputShield.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace zolt {

namespace {

bool isInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::InputMethod:
    case QEvent::ContextMenu:
    case QEvent::Wheel:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::DragEnter:
    case QEvent::Drop:
    case QEvent::Close:
        return true;
    default:
        return false;
    }
}

} // namespace

InputShield::InputShield()
{
    qApp->installEventFilter(this);
}

bool InputShield::eventFilter(QObject*, QEvent* event)
{
    if (!isInput(event->type()) || QApplication::activeModalWidget()) return false;
    event->ignore();
    return true;
}

void repaintWithoutInput(QWidget* shown)
{
    const InputShield shield;
    QCoreApplication::processEvents();
    if (shown) shown->repaint();
}

} // namespace zolt
