#include "platform/process/SpawnPlan.h"

#include "platform/files/FileNames.h"

#include <QFile>

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

namespace zolt {

namespace {

/// As the system takes lists of texts, which it does not write into.
std::vector<char*> pointersTo(const std::vector<QByteArray>& texts)
{
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (const QByteArray& text : texts)
        pointers.push_back(const_cast<char*>(text.constData()));
    pointers.push_back(nullptr);
    return pointers;
}

/// Undoes what this program or its libraries changed: the mask, and the signals they ignore, such as SIGPIPE.
/// All signals are named, as the C library asks the system about each one that is not, which takes longer.
void resetSignals(posix_spawnattr_t& attributes)
{
    sigset_t none, all;
    sigemptyset(&none);
    sigfillset(&all);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setsigdefault(&attributes, &all);
}

} // namespace

SpawnPlan::SpawnPlan(const QString& launchPath, const QStringList& arguments, const Environment& environment)
    : program_(bytesOfName(launchPath)), environment_(environmentEntries(environment))
{
    arguments_.reserve(std::size_t(arguments.size()) + 1);
    arguments_.push_back(program_);
    for (const QString& argument : arguments)
        arguments_.push_back(bytesOfName(argument));
    posix_spawn_file_actions_init(&actions_);
    posix_spawnattr_init(&attributes_);
    posix_spawnattr_setpgroup(&attributes_, 0);
    resetSignals(attributes_);
    posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
}

SpawnPlan::~SpawnPlan()
{
    posix_spawnattr_destroy(&attributes_);
    posix_spawn_file_actions_destroy(&actions_);
}

void SpawnPlan::sendOutputTo(int descriptor)
{
    posix_spawn_file_actions_adddup2(&actions_, descriptor, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions_, descriptor, STDERR_FILENO);
}

void SpawnPlan::startIn(const QString& directory)
{
    posix_spawn_file_actions_addchdir_np(&actions_, bytesOfName(directory).constData());
}

int SpawnPlan::spawn(pid_t* child)
{
    // After the output is in place: this program may have been started without descriptors, and its pipe may be 0.
    posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1);
    return posix_spawn(child, program_.constData(), &actions_, &attributes_, pointersTo(arguments_).data(),
                       pointersTo(*environment_).data());
}

} // namespace zolt
