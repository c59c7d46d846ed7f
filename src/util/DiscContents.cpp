#include "util/DiscContents.h"

#include "platform/files/FileNames.h"
#include "platform/files/Files.h"
#include "util/DiscVolumes.h"

#include <QDir>
#include <QRegularExpression>

#include <cerrno>
#include <cstring>
#include <vector>

#include <fcntl.h>
#include <linux/cdrom.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype headSize = 4, entrySize = 8;
constexpr int leadOut = 0xAA;
constexpr int dataFlag = 4; // of the kind's low half

/// Asks the drive for its table of contents (READ TOC). @return its answer; empty with errno set
QByteArray askForContents(int drive)
{
    QByteArray answer(headSize + 100 * entrySize, '\0');
    cdrom_generic_command command = {};
    command.cmd[0] = GPCMD_READ_TOC_PMA_ATIP;
    command.cmd[6] = 1; // from the first track
    command.cmd[7] = uchar(answer.size() >> 8);
    command.cmd[8] = uchar(answer.size());
    command.buffer = reinterpret_cast<unsigned char*>(answer.data());
    command.buflen = unsigned(answer.size());
    command.data_direction = CGC_DATA_READ;
    command.timeout = 3000;
    return ::ioctl(drive, CDROM_SEND_PACKET, &command) == 0 ? answer : QByteArray();
}

/// A title as part of a file's name, which may have 255 bytes with number and extension.
QString safe(QString title)
{
    constexpr qsizetype mostBytes = 200;
    title = title.replace(u'/', u'-').trimmed();
    while (title.toUtf8().size() > mostBytes)
        title.chop(title.back().isLowSurrogate() ? 2 : 1);
    return title;
}

void makeEmpty(const QString& path)
{
    const int file = ::open(bytesOfName(path).constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644);
    if (file >= 0) ::close(file);
}

} // namespace

QList<DiscTrack> tracksOfContents(const QByteArray& answer)
{
    if (answer.size() < headSize) return {};
    const qsizetype stated = 2 + (uchar(answer[0]) << 8 | uchar(answer[1]));
    QList<DiscTrack> tracks;
    for (qsizetype at = headSize; at + entrySize <= std::min(stated, answer.size()); at += entrySize) {
        const int number = uchar(answer[at + 2]);
        if (number > 0 && number != leadOut) tracks.append({number, (uchar(answer[at + 1]) & dataFlag) != 0});
    }
    return tracks;
}

QList<DiscTrack> readDiscContents(const QString& device, QString& fault)
{
    const int drive = ::open(bytesOfName(device).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    const QByteArray answer = drive < 0 ? QByteArray() : askForContents(drive);
    const int reason = errno;
    if (drive >= 0) ::close(drive);
    const QList<DiscTrack> tracks = tracksOfContents(answer);
    if (answer.isEmpty())
        fault = u"%1 tells no tracks: %2"_s.arg(device, QString::fromLocal8Bit(std::strerror(reason)));
    else if (std::all_of(tracks.begin(), tracks.end(), [](const DiscTrack& track) { return track.isData; }))
        fault = u"The disc in %1 has no audio tracks"_s.arg(device);
    return tracks;
}

QHash<int, QString> titlesOf(const QString& information)
{
    static const QRegularExpression line(u"^T(\\d+):.* title '(.*)' from '.*'"_s, QRegularExpression::MultilineOption);
    QHash<int, QString> titles;
    for (auto found = line.globalMatch(information); found.hasNext();) {
        const auto match = found.next();
        if (!match.captured(2).isEmpty()) titles.insert(match.captured(1).toInt(), match.captured(2));
    }
    return titles;
}

QStringList trackFileNames(const QList<DiscTrack>& tracks, const QHash<int, QString>& titles)
{
    QStringList names;
    for (const DiscTrack& track : tracks) {
        if (track.isData) continue;
        const QString plain = u"Track %1"_s.arg(track.number, 2, 10, QChar(u'0'));
        names += u"%1 %2.wav"_s.arg(QString::number(track.number), safe(titles.value(track.number, plain)));
    }
    return names;
}

QStringList placeTrackFiles(const QString& drive, const QStringList& names)
{
    const QString folder = folderOfDisc(drive);
    removeTree(folder);
    if (!QDir().mkpath(folder)) return {};
    QStringList paths;
    for (const QString& name : names) {
        paths += path::appendingComponent(folder, name);
        makeEmpty(paths.last()); // one that cannot be made is listed too: a gap would keep the tracks behind it back
    }
    return paths;
}

QString drivesFolder()
{
    return qEnvironmentVariable("ZOLT_DRIVES", u"/sys/block"_s);
}

QStringList discDrives(const QString& drives)
{
    QStringList names = directoryListing(drives);
    names.removeIf([](const QString& name) { return !name.startsWith(u"sr"); });
    names.sort();
    return names;
}

} // namespace zolt
