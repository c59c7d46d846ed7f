#include "ui/bus/LauncherUpdate.h"

#include "ui/bus/Names.h"

#include <QDBusMessage>

namespace zolt {

using namespace Qt::StringLiterals;

void sendLauncherUpdate(const QDBusConnection& session, const QVariantMap& properties)
{
    if (!session.isConnected()) return;
    QDBusMessage update = QDBusMessage::createSignal(QString::fromUtf16(busName::object),
                                                     u"com.canonical.Unity.LauncherEntry"_s, u"Update"_s);
    update << QString::fromUtf16(busName::launcherUri) << properties;
    session.send(update);
}

} // namespace zolt
