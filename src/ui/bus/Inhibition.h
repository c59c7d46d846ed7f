// Keeps the computer from going to sleep and the session from being ended.
#pragma once

#include <QDBusConnection>

#include <memory>

namespace zolt {

/// In force for as long as the object lives, once whoever decides it has answered: the session's portal, else the
/// system's login service; without either nothing happens. Nothing waits. Main thread.
class Inhibition
{
public:
    /// @param reason  for a person who asks why
    explicit Inhibition(const QString& reason, const QDBusConnection& session = QDBusConnection::sessionBus(),
                        const QDBusConnection& system = QDBusConnection::systemBus());
    ~Inhibition();
    Inhibition(const Inhibition&) = delete;
    Inhibition& operator=(const Inhibition&) = delete;

private:
    struct Held; // outlives this object until the answer has come
    void askPortal(const QString& reason);
    void askLogin(const QString& reason, const QDBusConnection& system);

    const std::shared_ptr<Held> held_;
};

} // namespace zolt
