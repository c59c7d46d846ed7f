#include "platform/files/ReplacingFile.h"

#include "platform/files/FileNames.h"

#include <QRandomGenerator>

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zolt {

namespace {

/// Makes a file with the rights that a new file of this user gets, beside the one to replace.
/// @return the descriptor; -1 where none can be made
int makeBeside(const QByteArray& path, QByteArray& made)
{
    int descriptor = -1;
    do {
        made = path + '.' + QByteArray::number(QRandomGenerator::global()->generate(), 36);
        descriptor = ::open(made.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    } while (descriptor < 0 && errno == EEXIST);
    return descriptor;
}

/// Gives the new file the rights of the old one, if there is one.
bool keepRights(const QByteArray& old, int descriptor)
{
    struct stat facts = {};
    return ::stat(old.constData(), &facts) != 0 || ::fchmod(descriptor, facts.st_mode & 07777) == 0;
}

} // namespace

ReplacingFile::ReplacingFile(const QString& path) : path_(bytesOfName(path)), descriptor_(makeBeside(path_, temporary_))
{
}

ReplacingFile::~ReplacingFile()
{
    if (descriptor_ < 0) return;
    ::close(descriptor_);
    ::unlink(temporary_.constData());
}

bool ReplacingFile::write(const QByteArray& bytes)
{
    if (descriptor_ < 0) return false;
    for (qsizetype done = 0; done < bytes.size();) {
        const ssize_t count = ::write(descriptor_, bytes.constData() + done, std::size_t(bytes.size() - done));
        if (count < 0 && errno != EINTR) return false;
        done += std::max<ssize_t>(count, 0);
    }
    return true;
}

bool ReplacingFile::commit()
{
    if (descriptor_ < 0 || !keepRights(path_, descriptor_) || ::fsync(descriptor_) != 0) return false;
    if (std::rename(temporary_.constData(), path_.constData()) != 0) return false;
    ::close(descriptor_);
    descriptor_ = -1;
    return true;
}

} // namespace zolt
