#include "platform/process/ChildRegistry.h"

#include <signal.h>
#include <sys/wait.h>

namespace zolt {

void ChildRegistry::add(pid_t child)
{
    const std::lock_guard guard(mutex_);
    running_.insert(child);
}

void ChildRegistry::remove(pid_t child)
{
    const std::lock_guard guard(mutex_);
    running_.erase(child);
}

void ChildRegistry::adoptOrphan(pid_t child)
{
    const std::lock_guard guard(mutex_);
    orphans_.push_back(child);
}

void ChildRegistry::reapOrphans()
{
    const std::lock_guard guard(mutex_);
    std::erase_if(orphans_, [this](pid_t child) {
        if (::waitpid(child, nullptr, WNOHANG) == 0) return false;
        running_.erase(child);
        return true;
    });
}

std::size_t ChildRegistry::count() const
{
    const std::lock_guard guard(mutex_);
    return running_.size();
}

void ChildRegistry::terminateGroups()
{
    const std::lock_guard guard(mutex_);
    for (const pid_t child : running_)
        ::kill(-child, SIGTERM);
}

ChildRegistry& childRegistry()
{
    static ChildRegistry* const registry = new ChildRegistry; // task threads may ask until the very end
    return *registry;
}

} // namespace zolt
