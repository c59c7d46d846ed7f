// What docks that know the launcher interface are told of the program's icon.
#pragma once

#include <QDBusConnection>
#include <QVariantMap>

namespace zolt {

/// Sends the properties that have changed. Nothing happens without a bus. Main thread.
void sendLauncherUpdate(const QDBusConnection& session, const QVariantMap& properties);

} // namespace zolt
