// The bar on the program's icon in docks that know the launcher interface.
#pragma once

#include <QDBusConnection>

namespace zolt {

/// Told over the session's bus; where there is none, or no dock listens, nothing happens. Main thread.
class LauncherProgress
{
public:
    explicit LauncherProgress(const QDBusConnection& session = QDBusConnection::sessionBus()) : session_(session) {}

    /// Shows the bar. @param part  from 0 to 1
    void show(double part) { tell(part, true); }
    void hide() { tell(0.0, false); }

private:
    void tell(double part, bool visible);

    QDBusConnection session_;
};

} // namespace zolt
