// org.freedesktop.Application, as the bus calls it.
#pragma once

#include "ui/bus/ApplicationBus.h"

#include <QDBusAbstractAdaptor>

namespace zolt {

/// Calls that come before the handlers wait for them. Main thread.
class ApplicationAdaptor : public QDBusAbstractAdaptor
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit ApplicationAdaptor(QObject* parent) : QDBusAbstractAdaptor(parent) {}
    void setHandlers(ApplicationBus::Handlers handlers);

public Q_SLOTS:
    void Activate(const QVariantMap& platformData);
    void Open(const QStringList& uris, const QVariantMap& platformData);
    void ActivateAction(const QString& name, const QVariantList& parameter, const QVariantMap& platformData);

private:
    void run(std::function<void()> work);

    ApplicationBus::Handlers handlers_;
    bool ready_ = false;
    std::vector<std::function<void()>> waiting_;
};

} // namespace zolt
