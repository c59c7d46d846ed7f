#include "ui/bus/LauncherBadge.h"

#include "ui/bus/Names.h"

#include <QDBusConnection>
#include <QDBusMessage>

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
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return;
    QDBusMessage update = QDBusMessage::createSignal(QString::fromUtf16(busName::object),
                                                     u"com.canonical.Unity.LauncherEntry"_s, u"Update"_s);
    update << QString::fromUtf16(busName::launcherUri)
           << QVariantMap{{u"count"_s, count_}, {u"count-visible"_s, count_ > 0}};
    bus.send(update);
}

} // namespace zolt
