#include "ui/bus/Inhibition.h"

#include "platform/Product.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusUnixFileDescriptor>

#include <functional>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

constexpr uint logout = 1;
constexpr uint suspend = 4;

const QString portal = u"org.freedesktop.portal.Desktop"_s;
const QString login = u"org.freedesktop.login1"_s;

bool hasService(const QDBusConnection& bus, const QString& name)
{
    return bus.isConnected() && bus.interface()->isServiceRegistered(name);
}

/// Has the handler called with the answer, however long it takes and whoever is gone by then.
void whenAnswered(const QDBusPendingCall& call, const std::function<void(const QDBusPendingCall&)>& handler)
{
    auto* const watcher = new QDBusPendingCallWatcher(call);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [watcher, handler] {
        handler(*watcher);
        watcher->deleteLater();
    });
}

} // namespace

/// What was given, and whether it is still wanted.
struct Inhibition::Held
{
    explicit Held(const QDBusConnection& bus) : session(bus) {}

    void giveBack()
    {
        wanted = false;
        descriptor = {}; // closing it is what the login service waits for
        if (!request.isEmpty())
            session.send(
                QDBusMessage::createMethodCall(portal, request, u"org.freedesktop.portal.Request"_s, u"Close"_s));
        request.clear();
    }

    QDBusConnection session;
    bool wanted = true;
    QString request;
    QDBusUnixFileDescriptor descriptor;
};

Inhibition::Inhibition(const QString& reason, const QDBusConnection& session, const QDBusConnection& system)
    : held_(std::make_shared<Held>(session))
{
    if (hasService(session, portal))
        askPortal(reason);
    else if (hasService(system, login))
        askLogin(reason, system);
}

Inhibition::~Inhibition()
{
    held_->giveBack();
}

void Inhibition::askPortal(const QString& reason)
{
    auto call = QDBusMessage::createMethodCall(portal, u"/org/freedesktop/portal/desktop"_s,
                                               u"org.freedesktop.portal.Inhibit"_s, u"Inhibit"_s);
    call << QString() << (logout | suspend) << QVariantMap{{u"reason"_s, reason}};
    whenAnswered(held_->session.asyncCall(call), [held = held_](const QDBusPendingCall& answer) {
        const QDBusPendingReply<QDBusObjectPath> reply = answer;
        if (reply.isError()) return;
        held->request = reply.value().path();
        if (!held->wanted) held->giveBack();
    });
}

void Inhibition::askLogin(const QString& reason, const QDBusConnection& system)
{
    auto call = QDBusMessage::createMethodCall(login, u"/org/freedesktop/login1"_s, u"org.freedesktop.login1.Manager"_s,
                                               u"Inhibit"_s);
    call << u"sleep:shutdown"_s << QString(QLatin1String(product::name)) << reason << u"block"_s;
    whenAnswered(system.asyncCall(call), [held = held_](const QDBusPendingCall& answer) {
        const QDBusPendingReply<QDBusUnixFileDescriptor> reply = answer;
        if (!reply.isError() && held->wanted) held->descriptor = reply.value();
    });
}

} // namespace zolt
