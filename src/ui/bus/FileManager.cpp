#include "ui/bus/FileManager.h"

#include "platform/files/FileUris.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDesktopServices>

namespace zolt {

using namespace Qt::StringLiterals;

void showInFolder(const QString& path)
{
    const QString service = u"org.freedesktop.FileManager1"_s;
    QDBusConnection bus = QDBusConnection::sessionBus();
    const bool reachable = bus.isConnected() && (bus.interface()->isServiceRegistered(service) ||
                                                 bus.interface()->activatableServiceNames().value().contains(service));
    if (!reachable) {
        QDesktopServices::openUrl(QUrl(uriOfPath(path::deletingLastComponent(path))));
        return;
    }
    auto call = QDBusMessage::createMethodCall(service, u"/org/freedesktop/FileManager1"_s, service, u"ShowItems"_s);
    call << QStringList{uriOfPath(path)} << QString();
    bus.send(call);
}

} // namespace zolt
