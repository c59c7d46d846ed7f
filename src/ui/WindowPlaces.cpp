#include "ui/WindowPlaces.h"

#include "platform/desktop/UserDefaults.h"

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

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

} // namespace zolt
