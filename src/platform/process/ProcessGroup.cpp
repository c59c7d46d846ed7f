#include "platform/process/ProcessGroup.h"

#include <QDir>
#include <QFile>

#include <poll.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

/// Whether /proc tells of a process that it belongs to the group and has not ended.
bool runsInGroup(const QString& process, pid_t group)
{
    QFile file(u"/proc/"_s + process + u"/stat"_s);
    if (!file.open(QIODevice::ReadOnly)) return false;
    const QByteArray facts = file.readAll();
    // Behind the name, which may hold anything: state, parent, group.
    const auto fields = facts.sliced(facts.lastIndexOf(')') + 1).simplified().split(' ');
    return fields.size() > 2 && fields[0] != "Z" && fields[0] != "X" && fields[2].toLong() == group;
}

pid_t memberOf(pid_t group)
{
    for (const QString& name : QDir(u"/proc"_s).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const pid_t process = name.toInt();
        if (process > 0 && runsInGroup(name, group)) return process;
    }
    return 0;
}

} // namespace

void waitForProcessGroup(pid_t group)
{
    while (const pid_t member = memberOf(group)) {
        pollfd end{int(::syscall(SYS_pidfd_open, member, 0)), POLLIN, 0};
        if (end.fd < 0) continue; // it has ended since
        ::poll(&end, 1, -1);
        ::close(end.fd);
    }
}

} // namespace zolt
