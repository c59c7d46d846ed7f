#include "ui/bus/LauncherBadge.h"

#include "ui/bus/LauncherUpdate.h"

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

constexpr int milliseconds = 250;

} // namespace

LauncherBadge::LauncherBadge()
{
    pause_.setSingleShot(true);
    pause_.setInterval(milliseconds);
    QObject::connect(&pause_, &QTimer::timeout, &pause_, [this] {
        if (count_ != told_) tell();
    });
}

void LauncherBadge::show(qint64 count)
{
    count_ = count;
    if (count_ != told_ && !pause_.isActive()) tell();
}

void LauncherBadge::tell()
{
    told_ = count_;
    pause_.start();
    sendLauncherUpdate(QDBusConnection::sessionBus(), {{u"count"_s, count_}, {u"count-visible"_s, count_ > 0}});
}

} // namespace zolt
