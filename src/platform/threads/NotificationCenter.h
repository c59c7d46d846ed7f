// Named notifications between objects that do not know each other.
#pragma once

#include <QByteArray>
#include <QString>

#include <any>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace zolt {

/// What an observer is handed.
struct Notification
{
    QString name;
    const void* sender = nullptr;             ///< who posted it; identity only
    std::any object;                          ///< what it carries, such as a number
    std::map<QString, QString> userInfo = {}; ///< what else is to be known; empty where there is nothing
};

class NotificationCenter
{
public:
    using Handler = std::function<void(const Notification&)>;

    /// The program's one centre.
    static NotificationCenter& standard();

    /// Has `handler` called for each notification of the name. Any thread.
    /// @param observer  identity of the observer, for removal
    /// @param sender    only notifications of this sender; nullptr for those of any
    void addObserver(const void* observer, const QString& name, const void* sender, Handler handler);

    /// Removes the observer's entries for name and sender; nothing happens if there are none. Any thread.
    void removeObserver(const void* observer, const QString& name, const void* sender);

    /// How many handlers wait for the name, of whichever sender. Any thread.
    std::size_t observerCount(const QString& name) const;

    /// Calls the handlers on the posting thread, in the order they were added; no lock is held meanwhile.
    /// What a handler throws goes to the poster.
    void post(const Notification& notification);

private:
    using Key = std::pair<QString, const void*>;
    struct Entry
    {
        const void* observer;
        std::shared_ptr<Handler> handler;
    };
    void gather(const Key& key, std::vector<std::shared_ptr<Handler>>& handlers) const;

    mutable std::mutex mutex_;
    std::map<Key, std::vector<Entry>> entries_;
};

} // namespace zolt
