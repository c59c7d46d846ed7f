#include "platform/process/ProcessGroup.h"

#include "platform/process/FileHandle.h"

#include <cerrno>
#include <cstdlib>
#include <memory>
#include <optional>

#include <dirent.h>
#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace zolt {

namespace {

constexpr pid_t nobody = 0;
constexpr int pauseMilliseconds = 20; // before another look where the system had no descriptor to give

void pause()
{
    ::poll(nullptr, 0, pauseMilliseconds);
}

bool outOfDescriptors(int fault)
{
    return fault == EMFILE || fault == ENFILE || fault == ENOMEM;
}

/// Whether /proc tells of a process that it belongs to the group and has not ended; absent where it could not be asked.
std::optional<bool> runsInGroup(const char* process, pid_t group)
{
    const QByteArray path = QByteArray("/proc/") + process + "/stat";
    const int descriptor = ::open(path.constData(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) return outOfDescriptors(errno) ? std::nullopt : std::optional(false);
    const QByteArray facts = FileHandle(descriptor).readDataToEndOfFile();
    // Behind the name, which may hold anything: state, parent, group.
    const auto fields = facts.sliced(facts.lastIndexOf(')') + 1).simplified().split(' ');
    return fields.size() > 2 && fields[0] != "Z" && fields[0] != "X" && fields[2].toLong() == group;
}

/// A member of the group, or nobody; absent where /proc could not be asked.
std::optional<pid_t> memberOf(pid_t group)
{
    const std::unique_ptr<DIR, int (*)(DIR*)> processes(::opendir("/proc"), ::closedir);
    if (!processes) return outOfDescriptors(errno) ? std::nullopt : std::optional(nobody);
    while (const dirent* const entry = ::readdir(processes.get())) {
        const pid_t process = std::atoi(entry->d_name);
        const auto runs = process > 0 ? runsInGroup(entry->d_name, group) : false;
        if (!runs) return std::nullopt;
        if (*runs) return process;
    }
    return nobody;
}

void waitFor(pid_t process)
{
    pollfd end{int(::syscall(SYS_pidfd_open, process, 0)), POLLIN, 0};
    if (end.fd < 0) return pause(); // it has ended since, or no descriptor is to be had
    ::poll(&end, 1, -1);
    ::close(end.fd);
}

} // namespace

void waitForProcessGroup(pid_t group)
{
    for (;;) {
        const auto member = memberOf(group);
        if (member == nobody) return;
        member ? waitFor(*member) : pause();
    }
}

} // namespace zolt
