#include "tags/RoomToSave.h"

#include "platform/files/FileNames.h"
#include "platform/files/Files.h"
#include "tags/Log.h"

#include <QFile>
#include <QFileInfo>

#include <limits>
#include <sys/resource.h>
#include <sys/statvfs.h>

namespace zolt {

namespace {

/// More than the library leaves free behind tags that have grown.
constexpr quint64 padding = 64 * 1024;

constexpr quint64 unlimited = std::numeric_limits<quint64>::max();

/// Free bytes on the file's disk for this user.
quint64 roomOnDisk(const QString& path)
{
    struct statvfs facts = {};
    if (::statvfs(bytesOfName(path).constData(), &facts) != 0) return unlimited;
    return static_cast<quint64>(facts.f_bavail) * facts.f_frsize;
}

/// What the program's limit on the size of files leaves.
quint64 roomBelowLimit(const QString& path)
{
    rlimit limit = {};
    if (::getrlimit(RLIMIT_FSIZE, &limit) != 0 || limit.rlim_cur == RLIM_INFINITY) return unlimited;
    const auto size = static_cast<quint64>(std::max<std::int64_t>(fileSize(path), 0));
    return limit.rlim_cur > size ? limit.rlim_cur - size : 0;
}

} // namespace

SaveRefusal refusalForWantOfRoom(qint64 oldBytes, qint64 newBytes, const QString& path)
{
    if (newBytes <= oldBytes) return std::nullopt;
    const auto more = static_cast<quint64>(newBytes - oldBytes);
    if (more + padding <= std::min(roomOnDisk(path), roomBelowLimit(path))) return std::nullopt;
    qCWarning(tagsLog).noquote() << "No room for" << more << "more bytes of tags:" << path;
    return QStringLiteral("The tags were not saved: the disk has no room for %1 more bytes.").arg(more);
}

} // namespace zolt
