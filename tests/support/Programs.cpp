#include "support/Programs.h"

#include "platform/process/SpawnPlan.h"

#include <QFile>
#include <QProcessEnvironment>
#include <QStandardPaths>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zolt::test {

namespace {

Environment environmentInUnicode()
{
    const auto own = QProcessEnvironment::systemEnvironment();
    Environment environment;
    for (const QString& name : own.keys())
        environment.insert(name, own.value(name));
    environment.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    return environment;
}

/// @return the exit status; -1 for a program that a signal has ended
int statusOf(pid_t child)
{
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace

// Not by QProcess, whose child shares this program's memory for a moment: behind that the thread sanitizer no longer
// sees what this thread locks.
QByteArray run(const QString& program, const QStringList& arguments, int* status)
{
    const QString path = program.contains(u'/') ? program : QStandardPaths::findExecutable(program);
    SpawnPlan plan(path, arguments, environmentInUnicode());
    int ends[2];
    if (status) *status = -1;
    if (::pipe2(ends, O_CLOEXEC) != 0) return {};
    plan.sendOutputTo(ends[1]);
    pid_t child = 0;
    const int failure = plan.spawn(&child);
    ::close(ends[1]);
    QFile output;
    const bool opened = output.open(ends[0], QIODevice::ReadOnly, QFile::AutoCloseHandle);
    if (failure != 0 || !opened) return {};
    const QByteArray text = output.readAll();
    const int ended = statusOf(child);
    if (status) *status = ended;
    return text;
}

} // namespace zolt::test
