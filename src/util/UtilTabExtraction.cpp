// The tab's command for audio discs: the tracks of a disc in the list, and the task that reads them.
#include "engine/NSTaskWrapperSync.h"
#include "engine/ZOLTTaskQueue.h"
#include "platform/errors/Exceptions.h"
#include "platform/threads/DetachedThreads.h"
#include "platform/threads/MainQueue.h"
#include "util/CDExtractSCSIProviderHelper.h"
#include "util/CDExtractTask.h"
#include "util/DiscSearch.h"
#include "util/DiscTracks.h"
#include "util/DiscVolumes.h"
#include "util/Log.h"
#include "util/UtilPlan.h"
#include "util/UtilTab.h"

namespace zolt {

using namespace Qt::StringLiterals;

OptionalText UtilTab::getProvider(const OptionalText& discName) const
{
    return CDExtractSCSIProviderHelper::initWithBSDName(discName).runTask();
}

QString UtilTab::getTrackNumberForExtract(const QStringList& names) const
{
    return trackRange(names);
}

QStringList UtilTab::reNumberCdTracks() const
{
    return tracksInOrder(fileNames().copy());
}

OptionalText UtilTab::discIdForVolumePath(const QString& path) const
{
    return discOfVolume(path, mountTable());
}

void UtilTab::runDiskutil(const QStringList& arguments) const
{
    try {
        NSTaskWrapperSync(tool(u"diskutil"_s), arguments).runTask();
    } catch (const PlatformException& fault) { // kept: whether it worked is not asked
        qCWarning(utilLog).noquote() << "diskutil" << fault.reason();
    }
}

bool UtilTab::mountDisc(const OptionalText& discName) const
{
    if (discName) runDiskutil({u"mountDisk"_s, *discName});
    return true;
}

bool UtilTab::unMountDisc(const OptionalText& discName) const
{
    if (!discName) throw InvalidArgumentException(u"The files are not on the disc of a drive."_s);
    runDiskutil({u"unmountDisk"_s, u"force"_s, *discName});
    return true;
}

void UtilTab::addTracksOfDisc(Sender)
{
    QStringList devices;
    for (const QString& drive : discDrives())
        devices += u"/dev/"_s + drive;
    if (devices.isEmpty()) return scanNote->setStringValue(u"This machine has no drive for discs"_s);
    addTracksOfDiscIn(devices);
}

void UtilTab::addTracksOfDiscIn(const QStringList& devices)
{
    scanNote->setStringValue(u"Reading the disc"_s);
    tracksOfDiscButton->setEnabled(false);
    detachThread([this, devices, alive = alive_, read = contentsReader_, information = tool(u"cdda2wav"_s)] {
        const FoundDisc found = lookForDisc(devices, information, read);
        postToMain([this, alive, found] {
            if (*alive) listDisc(found);
        });
    });
}

void UtilTab::listDisc(const FoundDisc& found)
{
    tracksOfDiscButton->setEnabled(true);
    scanNote->setStringValue(found.fault);
    if (found.names.isEmpty()) return;
    const QStringList files = fileNames().copy();
    QList<qsizetype> former; // of this disc or another: one is read at a time
    for (qsizetype row = 0; row < files.size(); ++row) {
        if (isInOwnDiscFolder(files[row])) former += row;
    }
    if (!former.isEmpty()) removeRows(former);
    addFiles(placeTrackFiles(found.drive, found.names));
}

void UtilTab::extract()
{
    const OptionalText folder = chooseOutputFolder(); // kept: a cancelled question does not stop the command
    const QString volume = path::deletingLastComponent(fileNames().at(0));
    const OptionalText disc = discIdForVolumePath(volume);
    const Extraction wanted{.range = getTrackNumberForExtract(reNumberCdTracks()),
                            .device = textOrEmpty(getProvider(disc)),
                            .discName = path::lastComponent(volume),
                            .folder = textOrEmpty(folder)};
    try {
        unMountDisc(disc);
        queueExtraction(wanted);
    } catch (const PlatformException& fault) {
        qCWarning(utilLog).noquote() << "Error" << fault.reason();
    }
    mountDisc(disc); // kept: at once, not behind the extraction
    clearFiles();
}

void UtilTab::queueExtraction(const Extraction& wanted)
{
    QStringList arguments;
    if (!oneTrack()) arguments += u"-B"_s;
    arguments +=
        {u"-L"_s, u"1"_s, u"-H"_s, u"-t"_s, wanted.range, u"-paranoia"_s, u"-Owav"_s, u"dev="_s + wanted.device};
    const auto task =
        CDExtractTask::initAsyncTaskWithQueueLaunchPathArguments(taskQueue(), tool(u"cdda2wav"_s), arguments);
    task->setTrackString(wanted.range);
    task->setOneTrack(oneTrack());
    task->setFileNames(fileNames().copy());
    task->setTitle(u"CD Tracks %1 - %2"_s.arg(wanted.range.section(u'+', 0, 0), wanted.range.section(u'+', 1)));
    task->setDiscName(wanted.discName);
    task->setDirectory(wanted.folder);
    taskQueue()->addTask(task);
}

void UtilTab::executeCommandWithout(const QList<qsizetype>& rows)
{
    BaseTab::executeCommandWithout(command() == extraction ? rows + rowsBehindGap(rows) : rows);
}

QList<qsizetype> UtilTab::rowsBehindGap(const QList<qsizetype>& leftOut) const
{
    const QStringList files = fileNames().copy();
    QStringList remaining;
    QList<qsizetype> rowsOfRemaining, behind;
    for (qsizetype row = 0; row < files.size(); ++row) {
        if (leftOut.contains(row)) continue;
        remaining += files[row];
        rowsOfRemaining += row;
    }
    for (const qsizetype row : rowsOutsideRange(remaining))
        behind += rowsOfRemaining[row];
    return behind;
}

void UtilTab::planExtraction(WorkPlan& plan) const
{
    utilPlan::extracting(plan, destination(), oneTrack());
}

} // namespace zolt
