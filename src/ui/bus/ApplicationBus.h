// The one running program, reached over the session's bus.
#pragma once

#include <QDBusConnection>
#include <QStringList>
#include <QVariantMap>

#include <functional>
#include <memory>

namespace zolt {

/// What a start of the program asks for.
struct OpenRequest
{
    QStringList files; ///< absolute paths
    int tab = -1;      ///< the tab to bring to the front; -1 for none
};

/// Answers org.freedesktop.Application for the one running program. Without a bus every start is the first and nothing
/// arrives. Main thread.
class ApplicationBus
{
public:
    struct Handlers
    {
        std::function<void()> activate;                     ///< bring the window to the front
        std::function<void(const QStringList& paths)> open; ///< files to take in
        std::function<void(int index)> selectTab;
    };

    explicit ApplicationBus(QDBusConnection bus = QDBusConnection::sessionBus());
    ~ApplicationBus();

    /// Takes the program's name on the bus. @return false if another program has it already
    bool becomeTheOne();
    /// Gives the name up: the next start becomes the one.
    void letGo();
    /// Hands the request to the program that runs already. @return false if it did not take it
    bool handOver(const OpenRequest& request);
    /// From now on what arrives is handed on; what came before waits until now.
    void setHandlers(Handlers handlers);

private:
    bool call(const QString& method, const QVariantList& arguments);

    class Object;
    QDBusConnection bus_;
    std::unique_ptr<Object> object_;
};

/// The name under which a desktop entry's action selects the tab of that index.
QString tabActionName(int index);

} // namespace zolt
