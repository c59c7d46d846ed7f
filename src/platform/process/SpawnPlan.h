// The C side of starting a process: argument vector, environment, descriptors, signals.
#pragma once

#include "platform/process/Environment.h"

#include <QByteArray>
#include <QStringList>

#include <vector>

#include <spawn.h>

namespace zolt {

class SpawnPlan
{
public:
    SpawnPlan(const QString& launchPath, const QStringList& arguments, const Environment& environment);
    ~SpawnPlan();
    SpawnPlan(const SpawnPlan&) = delete;
    SpawnPlan& operator=(const SpawnPlan&) = delete;

    /// Standard output and standard error both go to the descriptor.
    void sendOutputTo(int descriptor);
    void startIn(const QString& directory);

    /// @return 0, or the error number of what failed, the program's own start included
    int spawn(pid_t* child);

private:
    QByteArray program_;
    std::vector<QByteArray> arguments_;
    std::shared_ptr<const std::vector<QByteArray>> environment_;
    posix_spawn_file_actions_t actions_;
    posix_spawnattr_t attributes_;
};

} // namespace zolt
