#include "ui/bus/ApplicationBus.h"

#include "platform/errors/Exceptions.h"
#include "platform/files/FileUris.h"
#include "ui/bus/ApplicationAdaptor.h"
#include "ui/bus/Names.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

const QString tabActionStart = u"select-tab-"_s;
constexpr int patience = 5000; // milliseconds for the other program to take a request
constexpr char bareWords[] = "org.freedesktop.Application";

/// Only what the machine itself holds can be opened; an address of anything else is passed over.
QStringList pathsOf(const QStringList& uris)
{
    QStringList paths;
    for (const QString& uri : uris) {
        if (const OptionalText path = pathOfUri(QUrl(uri))) paths += *path;
    }
    return paths;
}

QStringList urisOf(const QStringList& paths)
{
    QStringList uris;
    for (const QString& path : paths)
        uris += uriOfPath(path);
    return uris;
}

} // namespace

void ApplicationAdaptor::setHandlers(ApplicationBus::Handlers handlers)
{
    handlers_ = std::move(handlers);
    ready_ = true;
    for (const auto& work : std::exchange(waiting_, {}))
        run(work);
}

void ApplicationAdaptor::run(std::function<void()> work)
{
    if (ready_)
        guarded("request from the bus", work);
    else
        waiting_.push_back(std::move(work));
}

void ApplicationAdaptor::Activate(const QVariantMap&)
{
    run([this] { handlers_.activate(); });
}

void ApplicationAdaptor::Open(const QStringList& uris, const QVariantMap&)
{
    run([this, uris] {
        handlers_.activate();
        // From the event loop: an alert about the files must not keep the caller waiting.
        QMetaObject::invokeMethod(
            this, [this, uris] { guarded("open files", [&] { handlers_.open(pathsOf(uris)); }); },
            Qt::QueuedConnection);
    });
}

void ApplicationAdaptor::ActivateAction(const QString& name, const QVariantList&, const QVariantMap&)
{
    if (!name.startsWith(tabActionStart)) return;
    bool isNumber = false;
    const int index = QStringView(name).mid(tabActionStart.size()).toInt(&isNumber);
    if (!isNumber) return;
    run([this, index] {
        handlers_.activate();
        handlers_.selectTab(index);
    });
}

/// The object on the bus, with its adaptor as a child.
class ApplicationBus::Object : public QObject
{
public:
    ApplicationAdaptor* const adaptor = new ApplicationAdaptor(this);
};

ApplicationBus::ApplicationBus(QDBusConnection bus) : bus_(std::move(bus)), object_(std::make_unique<Object>()) {}

ApplicationBus::~ApplicationBus()
{
    bus_.unregisterObject(QString::fromUtf16(busName::object));
}

void ApplicationBus::letGo()
{
    if (bus_.isConnected()) bus_.interface()->unregisterService(QString::fromUtf16(busName::application));
}

bool ApplicationBus::becomeTheOne()
{
    if (!bus_.isConnected()) return true;
    // The object first: once the name is taken, calls come at once.
    bus_.registerObject(QString::fromUtf16(busName::object), object_.get());
    const auto reply = bus_.interface()->registerService(QString::fromUtf16(busName::application));
    return !reply.isValid() || reply.value() == QDBusConnectionInterface::ServiceRegistered;
}

bool ApplicationBus::call(const QString& method, const QVariantList& arguments)
{
    auto message =
        QDBusMessage::createMethodCall(QString::fromUtf16(busName::application), QString::fromUtf16(busName::object),
                                       QLatin1String(bareWords), method);
    message.setArguments(arguments);
    return bus_.call(message, QDBus::Block, patience).type() == QDBusMessage::ReplyMessage;
}

bool ApplicationBus::handOver(const OpenRequest& request)
{
    const QVariantMap nothing;
    bool taken = true;
    if (request.tab >= 0) taken = call(u"ActivateAction"_s, {tabActionName(request.tab), QVariantList(), nothing});
    if (!request.files.isEmpty()) return call(u"Open"_s, {urisOf(request.files), nothing}) && taken;
    return request.tab >= 0 ? taken : call(u"Activate"_s, {nothing});
}

void ApplicationBus::setHandlers(Handlers handlers)
{
    object_->adaptor->setHandlers(std::move(handlers));
}

QString tabActionName(int index)
{
    return tabActionStart + QString::number(index);
}

} // namespace zolt
