#include "platform/files/NamedFile.h"

#include "platform/files/FileNames.h"

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zolt {

namespace {

int flagsOf(QIODevice::OpenMode mode)
{
    const bool writes = mode.testFlag(QIODevice::WriteOnly);
    if (!writes) return O_RDONLY;
    int flags = mode.testFlag(QIODevice::ReadOnly) ? O_RDWR : O_WRONLY;
    if (!mode.testFlag(QIODevice::ExistingOnly)) flags |= O_CREAT;
    if (mode.testFlag(QIODevice::NewOnly)) flags |= O_EXCL;
    const bool keeps = mode.testFlag(QIODevice::ReadOnly) || mode.testFlag(QIODevice::Append);
    if (mode.testFlag(QIODevice::Truncate) || !(keeps || mode.testFlag(QIODevice::NewOnly))) flags |= O_TRUNC;
    if (mode.testFlag(QIODevice::Append)) flags |= O_APPEND;
    return flags;
}

/// The descriptor; -1 with errno set. A directory can be opened, but nobody wants one as a file.
int openByBytes(const QByteArray& path, int flags)
{
    const int descriptor = ::open(path.constData(), flags | O_CLOEXEC, 0666);
    struct stat facts = {};
    if (descriptor < 0 || ::fstat(descriptor, &facts) != 0 || !S_ISDIR(facts.st_mode)) return descriptor;
    ::close(descriptor);
    errno = EISDIR;
    return -1;
}

} // namespace

bool NamedFile::open(OpenMode mode)
{
    if (mode.testFlag(Append)) mode |= WriteOnly;
    const int descriptor = openByBytes(bytesOfName(fileName()), flagsOf(mode));
    if (descriptor < 0) {
        setErrorString(QString::fromLocal8Bit(std::strerror(errno)));
        return false;
    }
    return QFile::open(descriptor, mode, AutoCloseHandle);
}

} // namespace zolt
