#include "ui/bus/RunNotice.h"

#include "platform/Product.h"
#include "platform/errors/Exceptions.h"
#include "ui/bus/Names.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

const QString service = u"org.freedesktop.Notifications"_s;
const QString object = u"/org/freedesktop/Notifications"_s;
constexpr int asLongAsUsual = -1;

} // namespace

RunNotice::RunNotice(const QDBusConnection& session) : session_(session)
{
    session_.connect(service, object, service, u"ActionInvoked"_s, this, SLOT(takeAction(uint, QString)));
}

void RunNotice::show(const QString& title, const QString& text)
{
    if (!session_.isConnected()) return;
    auto call = QDBusMessage::createMethodCall(service, object, service, u"Notify"_s);
    const QVariantMap hints{{u"desktop-entry"_s, QString::fromUtf16(busName::application)}};
    const QStringList actions{u"default"_s, u"Show"_s, u"report"_s, u"Show report"_s};
    call << QString(QLatin1String(product::name)) << id_ << QString::fromUtf16(busName::application) << title
         << text.toHtmlEscaped() << actions << hints << asLongAsUsual;
    auto* const watcher = new QDBusPendingCallWatcher(session_.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<uint> reply = *watcher;
        if (!reply.isError()) id_ = reply.value();
        watcher->deleteLater();
    });
}

void RunNotice::takeAction(uint id, const QString&)
{
    if (id == 0 || id != id_ || !showReport_) return;
    guarded("notification", [this] { showReport_(); });
}

} // namespace zolt
