#include "tags/mp4/RandomAccessFile.h"

#include "platform/files/FileNames.h"
#include "tags/mp4/Mp4Error.h"

#include <QFile>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/xattr.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace zolt {
namespace {

constexpr quint64 bufferSize = 1 << 20;
constexpr quint64 kernelPieceSize = 1 << 30;

int openFile(const QString& path, RandomAccessFile::Mode mode)
{
    constexpr int flags[] = {O_RDONLY, O_RDWR, O_RDWR | O_CREAT | O_TRUNC};
    // A pipe without a writer would hold the caller for ever.
    return ::open(bytesOfName(path).constData(), flags[static_cast<int>(mode)] | O_CLOEXEC | O_NONBLOCK, 0600);
}

bool isRegularFile(int descriptor)
{
    struct stat status;
    return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

} // namespace

RandomAccessFile::RandomAccessFile(const QString& path, Mode mode) : path_(path), descriptor_(openFile(path, mode))
{
    if (descriptor_ < 0) fail("open");
    if (isRegularFile(descriptor_)) return;
    ::close(descriptor_);
    throw Mp4Error(u"%1 is not a regular file"_s.arg(path_));
}

RandomAccessFile::~RandomAccessFile()
{
    ::close(descriptor_);
}

void RandomAccessFile::fail(const char* operation) const
{
    const QString reason = QString::fromLocal8Bit(std::strerror(errno));
    throw Mp4Error(u"cannot %1 %2: %3"_s.arg(QLatin1StringView(operation), path_, reason));
}

struct stat RandomAccessFile::facts() const
{
    struct stat status;
    if (fstat(descriptor_, &status) != 0) fail("examine");
    return status;
}

quint64 RandomAccessFile::size() const
{
    return static_cast<quint64>(facts().st_size);
}

bool RandomAccessFile::hasOtherNames() const
{
    return facts().st_nlink > 1;
}

QByteArray RandomAccessFile::read(quint64 position, quint64 length) const
{
    QByteArray bytes(static_cast<qsizetype>(length), Qt::Uninitialized);
    quint64 done = 0;
    while (done < length) {
        const ssize_t count = pread(descriptor_, bytes.data() + done, length - done, off_t(position + done));
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) fail("read");
        if (count == 0) throw Mp4Error(u"%1 ends too early"_s.arg(path_));
        done += static_cast<quint64>(count);
    }
    return bytes;
}

void RandomAccessFile::write(quint64 position, const QByteArray& bytes)
{
    const auto length = static_cast<quint64>(bytes.size());
    quint64 done = 0;
    while (done < length) {
        const ssize_t count = pwrite(descriptor_, bytes.constData() + done, length - done, off_t(position + done));
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) fail("write");
        done += static_cast<quint64>(count);
    }
}

void RandomAccessFile::copyFrom(const RandomAccessFile& source, quint64 sourcePosition, quint64 length,
                                quint64 position)
{
    quint64 done = 0;
    while (done < length) {
        quint64 count = copyInKernel(source, sourcePosition + done, length - done, position + done);
        // Not every file system, and no pair of them, has to be able to.
        if (count == 0) count = copyThroughBuffer(source, sourcePosition + done, length - done, position + done);
        done += count;
    }
}

/// @return bytes copied; 0 if the kernel cannot copy between these files
quint64 RandomAccessFile::copyInKernel(const RandomAccessFile& source, quint64 sourcePosition, quint64 length,
                                       quint64 position)
{
    auto from = static_cast<off_t>(sourcePosition);
    auto to = static_cast<off_t>(position);
    const ssize_t count =
        copy_file_range(source.descriptor_, &from, descriptor_, &to, std::min(length, kernelPieceSize), 0);
    return count > 0 ? static_cast<quint64>(count) : 0;
}

quint64 RandomAccessFile::copyThroughBuffer(const RandomAccessFile& source, quint64 sourcePosition, quint64 length,
                                            quint64 position)
{
    const quint64 count = std::min(length, bufferSize);
    write(position, source.read(sourcePosition, count));
    return count;
}

void RandomAccessFile::resize(quint64 size)
{
    if (ftruncate(descriptor_, static_cast<off_t>(size)) != 0) fail("resize");
}

void RandomAccessFile::grow(quint64 size)
{
    const quint64 before = this->size();
    if (size <= before) return;
    errno = posix_fallocate(descriptor_, off_t(before), off_t(size - before));
    if (errno == 0) return;
    const int fault = errno;
    resize(before);
    errno = fault;
    fail("write");
}

void RandomAccessFile::flush()
{
    if (fsync(descriptor_) != 0) fail("write");
}

void RandomAccessFile::takeAttributes(const RandomAccessFile& other)
{
    const struct stat status = other.facts();
    // Only root may give files away, but anyone may choose among the own groups.
    const bool owned = fchown(descriptor_, status.st_uid, status.st_gid) == 0 ||
                       fchown(descriptor_, static_cast<uid_t>(-1), status.st_gid) == 0;
    // What the old group was granted is not for another one.
    if (fchmod(descriptor_, status.st_mode & (owned ? 0777 : 0707)) != 0) fail("set the access of");
    takeExtendedAttributes(other, owned);
}

/// @param ofAccess  those too that say who may do what
void RandomAccessFile::takeExtendedAttributes(const RandomAccessFile& other, bool ofAccess)
{
    QByteArray names(flistxattr(other.descriptor_, nullptr, 0), '\0');
    names.resize(flistxattr(other.descriptor_, names.data(), size_t(names.size())));
    for (const QByteArray& name : names.split('\0')) {
        if (name.isEmpty() || (!ofAccess && name.startsWith("system."))) continue;
        QByteArray value(fgetxattr(other.descriptor_, name.constData(), nullptr, 0), '\0');
        const ssize_t length = fgetxattr(other.descriptor_, name.constData(), value.data(), size_t(value.size()));
        // Some belong to the system, and not every disk takes them.
        if (length >= 0) fsetxattr(descriptor_, name.constData(), value.constData(), size_t(length), 0);
    }
}

} // namespace zolt
