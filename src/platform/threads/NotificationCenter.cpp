#include "platform/threads/NotificationCenter.h"

namespace zolt {

NotificationCenter& NotificationCenter::standard()
{
    static NotificationCenter* const centre = new NotificationCenter; // threads may post until the very end
    return *centre;
}

void NotificationCenter::addObserver(const void* observer, const QString& name, const void* sender, Handler handler)
{
    const std::lock_guard guard(mutex_);
    entries_[{name, sender}].push_back({observer, std::make_shared<Handler>(std::move(handler))});
}

void NotificationCenter::removeObserver(const void* observer, const QString& name, const void* sender)
{
    const std::lock_guard guard(mutex_);
    const auto found = entries_.find({name, sender});
    if (found == entries_.end()) return;
    std::erase_if(found->second, [observer](const Entry& entry) { return entry.observer == observer; });
    if (found->second.empty()) entries_.erase(found);
}

std::size_t NotificationCenter::observerCount(const QString& name) const
{
    const std::lock_guard guard(mutex_);
    std::size_t count = 0;
    for (const auto& [key, entries] : entries_)
        count += key.first == name ? entries.size() : 0;
    return count;
}

void NotificationCenter::gather(const Key& key, std::vector<std::shared_ptr<Handler>>& handlers) const
{
    const auto found = entries_.find(key);
    if (found == entries_.end()) return;
    for (const Entry& entry : found->second)
        handlers.push_back(entry.handler);
}

void NotificationCenter::post(const Notification& notification)
{
    std::vector<std::shared_ptr<Handler>> handlers;
    {
        const std::lock_guard guard(mutex_);
        gather({notification.name, notification.sender}, handlers);
        if (notification.sender) gather({notification.name, nullptr}, handlers);
    }
    for (const auto& handler : handlers)
        (*handler)(notification);
}

} // namespace zolt
