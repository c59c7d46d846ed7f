// The count on the program's icon in docks that know the launcher interface.
#pragma once

#include <QTimer>

namespace zolt {

/// Told over the session's bus; where there is none, or no dock listens, nothing happens. Main thread.
class LauncherBadge
{
public:
    LauncherBadge();

    /// Shows the count, none for 0. A queue that hurries is told a few times a second, its last count always.
    void show(qint64 count);

private:
    void tell();

    QTimer pause_;
    qint64 count_ = 0;
    qint64 told_ = 0;
};

} // namespace zolt
