#include "shell/OutlookChecks.h"
#include "shell/Wording.h"

#include <QHash>
#include <QMap>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

// Lossless audio hardly ever shrinks to less than this part; only where room is scarcer than that are the files read.
constexpr std::int64_t usualGrowth = 4;

/// What is written to one file system.
struct Room
{
    QString folder;
    std::vector<const WorkItem*> items;
    std::int64_t sourceBytes = 0;
};

bool writes(const WorkItem& item)
{
    return !item.outputs.isEmpty() && (item.outputBytes >= 0 || item.outputSize != WorkItem::Size::Unknown);
}

QMap<std::uint64_t, Room> roomsOf(const OutlookSubject& subject)
{
    QHash<QString, std::uint64_t> devices;
    QMap<std::uint64_t, Room> rooms;
    for (const WorkItem& item : subject.plan.items) {
        if (subject.stop) break;
        if (!writes(item)) continue;
        const QString folder = path::deletingLastComponent(item.outputs.first());
        if (!devices.contains(folder)) devices[folder] = subject.disk.device(folder);
        Room& room = rooms[devices[folder]];
        if (room.items.empty()) room.folder = folder;
        room.items.push_back(&item);
        room.sourceBytes += item.outputBytes >= 0 ? item.outputBytes : subject.disk.size(item.source);
        if (item.staged) room.sourceBytes += subject.disk.size(item.source);
    }
    return rooms;
}

std::int64_t neededBy(const WorkItem& item, const OutlookDisk& disk)
{
    if (item.outputBytes >= 0) return item.outputBytes;
    return item.outputSize == WorkItem::Size::PlainAudio ? disk.decodedBytes(item.source) : disk.size(item.source);
}

std::int64_t neededIn(const Room& room, const OutlookSubject& subject)
{
    std::int64_t needed = 0, largestStage = 0; // stages go one after the other
    for (const WorkItem* const item : room.items) {
        if (subject.stop) return 0;
        needed += neededBy(*item, subject.disk);
        if (item->staged) largestStage = std::max(largestStage, subject.disk.decodedBytes(item->source));
    }
    return needed + largestStage;
}

} // namespace

OutlookProblems checkRoom(const OutlookSubject& subject)
{
    if (!knowsPlaces(subject.plan)) return {};
    OutlookProblems problems;
    for (const Room& room : roomsOf(subject)) {
        const std::int64_t available = subject.disk.freeBytes(room.folder);
        if (available / usualGrowth >= room.sourceBytes) continue;
        const std::int64_t needed = neededIn(room, subject);
        if (needed <= available) continue;
        problems.push_back({OutlookProblem::Kind::Room,
                            u"Too little room on the disk of %1: about %2 are needed and %3 are free"_s.arg(
                                room.folder, sizeInWords(needed), sizeInWords(available)),
                            {},
                            {}});
    }
    return problems;
}

} // namespace zolt
