#include "ui/WindowPlaces.h"

#include "platform/desktop/UserDefaults.h"

#include <QScreen>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

constexpr int gap = 8; // units between windows side by side

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

void placeBesideActive(QWidget& window)
{
    const QWidget* const active = QApplication::activeWindow();
    if (!active || !active->screen() || window.testAttribute(Qt::WA_Moved)) return;
    const QRect beside(active->frameGeometry().topRight() + QPoint(gap, 0), window.size());
    if (active->screen()->availableGeometry().contains(beside)) window.move(beside.topLeft());
}

} // namespace zolt
