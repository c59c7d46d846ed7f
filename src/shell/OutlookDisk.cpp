#include "shell/OutlookDisk.h"

#include "platform/files/FileNames.h"
#include "platform/files/Files.h"
#include "platform/files/NamedFile.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <limits>

#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace zolt {

namespace {

/// The status of a path; all zero where there is none.
struct stat statusOf(const QString& path)
{
    struct stat status = {};
    if (::stat(bytesOfName(path).constData(), &status) != 0) return {};
    return status;
}

// A FLAC file starts with its marker and a 4-byte block header; ten bytes into that block stand, packed into 64 bits,
// the rate (20), channels less one (3), bits a sample less one (5) and the number of samples (36).
constexpr qsizetype packedAt = 4 + 4 + 10;

std::int64_t decodedFlacBytes(const QByteArray& start)
{
    if (!start.startsWith("fLaC") || start.size() < packedAt + 8) return 0;
    const auto packed = qFromBigEndian<std::uint64_t>(start.constData() + packedAt);
    const auto channels = std::int64_t((packed >> 41) & 7) + 1;
    const auto bits = std::int64_t((packed >> 36) & 31) + 1;
    const auto samples = std::int64_t(packed & 0xfffffffffULL);
    return samples * channels * ((bits + 7) / 8);
}

} // namespace

bool LocalDisk::exists(const QString& path) const
{
    return zolt::exists(path);
}

bool LocalDisk::isWritable(const QString& folder) const
{
    return ::access(bytesOfName(folder).constData(), W_OK | X_OK) == 0;
}

std::uint64_t LocalDisk::device(const QString& folder) const
{
    return statusOf(folder).st_dev;
}

std::int64_t LocalDisk::freeBytes(const QString& folder) const
{
    struct statvfs room = {};
    if (::statvfs(bytesOfName(folder).constData(), &room) != 0) return std::numeric_limits<std::int64_t>::max();
    return std::int64_t(room.f_bavail) * std::int64_t(room.f_frsize);
}

std::int64_t LocalDisk::size(const QString& path) const
{
    return statusOf(path).st_size;
}

std::int64_t LocalDisk::decodedBytes(const QString& path) const
{
    NamedFile file(path);
    const QByteArray start = file.open(QIODevice::ReadOnly) ? file.read(packedAt + 8) : QByteArray();
    return std::max(decodedFlacBytes(start), size(path));
}

QString LocalDisk::trueFolder(const QString& folder) const
{
    const QString real = realPath(folder);
    return real.isEmpty() ? folder : real;
}

QList<MissingTool> LocalDisk::missing(const QStringList& tools) const
{
    return missingTools(tools);
}

} // namespace zolt
