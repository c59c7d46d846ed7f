// Which children of this program run, and those nobody waits for any more.
#pragma once

#include <mutex>
#include <set>
#include <vector>

#include <sys/types.h>

namespace zolt {

/// Any thread.
class ChildRegistry
{
public:
    void add(pid_t child);
    void remove(pid_t child);
    /// Takes over a child that still runs while its owner goes, so that it leaves no zombie behind.
    void adoptOrphan(pid_t child);
    /// Collects the orphans that have ended.
    void reapOrphans();
    /// How many children have not been collected.
    std::size_t count() const;
    /// SIGTERM to the process group of every child that has not been collected.
    void terminateGroups();

private:
    mutable std::mutex mutex_;
    std::set<pid_t> running_;
    std::vector<pid_t> orphans_;
};

/// The program's one registry.
ChildRegistry& childRegistry();

} // namespace zolt
