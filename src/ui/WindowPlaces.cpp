#include "ui/WindowPlaces.h"

#include "platform/desktop/UserDefaults.h"

#include <QScreen>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

constexpr int gap = 8;       // units between windows side by side
constexpr int titleBar = 32; // units that a window manager may put above a window

QString keyOf(const QString& name)
{
    return u"windowPlace."_s + name;
}

} // namespace

bool restorePlace(QWidget& window, const QString& name)
{
    const QString kept = UserDefaults::standard().stringForKey(keyOf(name));
    return !kept.isEmpty() && window.restoreGeometry(QByteArray::fromBase64(kept.toLatin1()));
}

void keepPlace(const QWidget& window, const QString& name)
{
    const QString place = QString::fromLatin1(window.saveGeometry().toBase64());
    UserDefaults& settings = UserDefaults::standard();
    if (settings.stringForKey(keyOf(name)) != place) settings.set(keyOf(name), place);
}

void fitToScreen(QWidget& window)
{
    if (!window.screen()) return;
    const QRect room = window.screen()->availableGeometry().adjusted(0, titleBar, 0, 0);
    window.setMinimumSize(window.minimumSize().boundedTo(room.size()));
    window.resize(window.size().boundedTo(room.size()));
    QRect place = window.geometry();
    place.moveRight(std::min(place.right(), room.right()));
    place.moveBottom(std::min(place.bottom(), room.bottom()));
    place.moveLeft(std::max(place.left(), room.left()));
    place.moveTop(std::max(place.top(), room.top()));
    if (window.testAttribute(Qt::WA_Moved) && place != window.geometry()) window.setGeometry(place);
}

QSize sizeOnScreen(const QWidget& window)
{
    const bool framed = window.frameSize() != window.size();
    return framed ? window.frameSize() : window.size() + QSize(0, titleBar);
}

void bringToFront(QWidget& window)
{
    window.show();
    if (window.isMinimized()) window.showNormal();
    window.raise();
    window.activateWindow();
}

void placeBesideActive(QWidget& window)
{
    const QWidget* const active = QApplication::activeWindow();
    if (!active || !active->screen() || window.testAttribute(Qt::WA_Moved)) return;
    const QRect taken = active->frameGeometry();
    for (const int left : {taken.right() + gap, taken.left() - gap - window.width()}) {
        const QRect beside(QPoint(left, taken.top()), window.size());
        if (active->screen()->availableGeometry().contains(beside)) return window.move(beside.topLeft());
    }
}

} // namespace zolt
