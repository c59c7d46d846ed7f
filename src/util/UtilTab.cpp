#include "util/UtilTab.h"

#include "encode/CoreAudioHelper.h"
#include "engine/NSTaskWrapperSync.h"
#include "engine/ZOLTTaskQueue.h"
#include "engine/ZOLTTaskResults.h"
#include "platform/desktop/Panels.h"
#include "platform/errors/Exceptions.h"
#include "platform/threads/DetachedThreads.h"
#include "platform/threads/MainQueue.h"
#include "shell/Constants.h"
#include "shell/ZOLTStringGetterPanel.h"
#include "tags/FlacTagHelper.h"
#include "util/BatchRename.h"
#include "util/CDExtractSCSIProviderHelper.h"
#include "util/CDExtractTask.h"
#include "util/DVDAuthorTask.h"
#include "util/DeEmphasisTask.h"
#include "util/DiscContents.h"
#include "util/DiscTracks.h"
#include "util/DiscVolumes.h"
#include "util/Log.h"
#include "util/UtilPlan.h"

#include <QTimer>

#include <cmath>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

using C = Constants;

constexpr int moment = 100; // milliseconds

const QString addTitle = u"Add"_s;

bool matches(const AudioFormatObject& one, const AudioFormatObject& other)
{
    return one.sampleRate() == other.sampleRate() && one.bitsPerChannel() == other.bitsPerChannel() &&
           one.channels() == other.channels();
}

bool isAiffName(const QString& file)
{
    return utilPlan::withExtensions({file}, {C::AIF, C::AIFF}).size() == 1;
}

/// Nothing for a file that cannot go on a DVD.
std::shared_ptr<AudioFormatObject> formatOf(const QString& file)
{
    if (isAiffName(file)) return nullptr;
    if (path::extension(file).toUpper() == C::FLAC) return FlacTagHelper().getFormatInfo(file);
    return CoreAudioHelper::getFormatInfo(file);
}

struct FoundDisc
{
    QString drive;
    QStringList names; ///< of its tracks; none where no drive holds such a disc
    QString fault;     ///< why not
};

/// Asks one drive after the other, and the first with tracks for their titles. Blocks.
FoundDisc lookForDisc(const QStringList& devices, const QString& informationTool)
{
    FoundDisc found;
    for (const QString& device : devices) {
        const QList<DiscTrack> tracks = readDiscContents(device, found.fault);
        if (!found.fault.isEmpty()) continue;
        QHash<int, QString> titles;
        guarded("titles of a disc", [&] {
            NSTaskWrapperSync asked(informationTool, {u"-J"_s, u"-H"_s, u"-v"_s, u"titles"_s, u"dev="_s + device});
            titles = titlesOf(textOrEmpty(asked.runTask()));
        });
        found.drive = path::lastComponent(device);
        found.names = trackFileNames(tracks, titles);
        break;
    }
    return found;
}

} // namespace

UtilTab::UtilTab()
    : commandMatrix(std::make_shared<Matrix>(5, 1, QStringList{extraction, renaming, replayGain, deEmphasis, dvdDisc})),
      replayGainMatrix(std::make_shared<Matrix>(2, 1, QStringList{addTitle, u"Remove"_s}))
{
    oneTrackButton->setTitle(u"All tracks into one file"_s);
    dvdAudioDiscTimeStaticText->setStringValue(u"Length:"_s);
    dvdAudioDiscSizeStaticText->setStringValue(u"Size:"_s);
    tracksOfDiscButton->setTitle(u"Tracks of Disc"_s);
    tracksOfDiscButton->setAction([this] { addTracksOfDisc(tracksOfDiscButton.get()); });
    commandMatrix->setAction([this] { changeDisplayOptions(commandMatrix.get()); });
}

QString UtilTab::parseTimeAsString(double seconds)
{
    const int minutes = int(seconds / 60);
    const int rest = int(seconds - 60 * std::floor(seconds / 60));
    return u"%1:%2%3"_s.arg(minutes).arg(rest <= 9 ? u"0"_s : QString()).arg(rest);
}

QString UtilTab::parseSizeFromTimeAsStringSampleRateBitDepthNumChannels(double seconds, int sampleRate, int bitDepth,
                                                                        int channels)
{
    constexpr double bitsOfAMegabyte = 8000000; // as file managers count today
    const double size = sampleRate * seconds * bitDepth * channels / bitsOfAMegabyte;
    return QString::number(size, 'f', 2) + u" MB"_s;
}

void UtilTab::filesAdded()
{
    if (command() == dvdDisc) findFormatInfo();
}

void UtilTab::findFormatInfo()
{
    formatObjects_.clear();
    scanNote->setStringValue(QString());
    try {
        scan();
    } catch (const PlatformException& fault) {
        qCWarning(utilLog).noquote() << "error" << fault.reason();
        giveUpList(u"The list was emptied: "_s + fault.reason());
    }
    tableView->reloadData();
}

void UtilTab::scan()
{
    double total = 0; // seconds
    for (const QString& file : fileNames().copy()) {
        const auto format = formatOf(file);
        const QString name = path::lastComponent(file);
        if (!format && isAiffName(file))
            return giveUpList(u"The list was emptied: AIFF files such as %1 cannot go on a DVD-Audio disc"_s.arg(name));
        if (!format) return giveUpList(u"The list was emptied: %1 cannot be read as audio"_s.arg(name));
        formatObjects_.push_back(format);
        total += format->time();
        if (!takeFormat(name, *format, total)) return;
    }
}

bool UtilTab::takeFormat(const QString& name, const AudioFormatObject& format, double total)
{
    const AudioFormatObject& first = *formatObjects_.front();
    if (!matches(format, first)) {
        panels().runAlert(u"The Files in the list must match in sample rate, bit depth and number of channels."_s,
                          QString(), u"OK"_s);
        giveUpList(u"The list was emptied: %1 differs from the files before it"_s.arg(name));
        return false;
    }
    dvdAudioDiscTime->setStringValue(parseTimeAsString(total));
    dvdAudioDiscSize->setStringValue(parseSizeFromTimeAsStringSampleRateBitDepthNumChannels(
        total, first.sampleRate(), first.bitsPerChannel(), first.channels()));
    return true;
}

void UtilTab::giveUpList(const QString& why)
{
    clearFiles();
    scanNote->setStringValue(why);
}

QString UtilTab::tableViewObjectValueForTableColumnRow(int column, qsizetype row) const
{
    if (column == 0) return BaseTab::tableViewObjectValueForTableColumnRow(column, row);
    if (row < 0 || std::size_t(row) >= formatObjects_.size()) return QString();
    const AudioFormatObject& format = *formatObjects_[std::size_t(row)];
    if (column == 1) return parseTimeAsString(format.time());
    if (column == 2) return QString::number(format.sampleRate());
    return column == 3 ? QString::number(format.bitsPerChannel()) : QString();
}

void UtilTab::growFileTable()
{
    tableView->setColumnHeader(0, u"fileName"_s);
    for (const QString& header : {u"length (min)"_s, u"sample rate"_s, u"bit depth"_s})
        tableView->addTableColumn(header);
}

void UtilTab::shrinkFileTable()
{
    tableView->setColumnHeader(0, QString());
    tableView->removeTableColumnsBehind(1);
}

OptionalText UtilTab::promptForBatchNameInput() const
{
    if (prefix_) return prefix_;
    ZOLTStringGetterPanel panel;
    return panel.runPanelWithTitleMessageInitialString(
        u"Batch Rename"_s, u"Enter the Prefix that you want the files to start with:"_s, u""_s);
}

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

QString UtilTab::tool(const QString& name) const
{
    return path::appendingComponent(pathToCommandLineTools(), name);
}

bool UtilTab::mountDisc(const OptionalText& discName) const
{
    if (discName) NSTaskWrapperSync(tool(u"diskutil"_s), {u"mountDisk"_s, *discName}).runTask();
    return true;
}

bool UtilTab::unMountDisc(const OptionalText& discName) const
{
    if (!discName) throw InvalidArgumentException(u"The files are not on the disc of a drive."_s);
    NSTaskWrapperSync(tool(u"diskutil"_s), {u"unmountDisk"_s, u"force"_s, *discName}).runTask();
    return true;
}

void UtilTab::clearFiles()
{
    formatObjects_.clear();
    dvdAudioDiscTime->setStringValue(QString());
    dvdAudioDiscSize->setStringValue(QString());
    BaseTab::clearFiles();
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
    detachThread([this, devices, alive = alive_, information = tool(u"cdda2wav"_s)] {
        const FoundDisc found = lookForDisc(devices, information);
        postToMain([this, alive, found] {
            if (!*alive) return;
            tracksOfDiscButton->setEnabled(true);
            scanNote->setStringValue(found.fault);
            if (!found.names.isEmpty()) addFiles(placeTrackFiles(found.drive, found.names));
        });
    });
}

void UtilTab::hideOptions()
{
    const std::vector<std::shared_ptr<Control>> options{
        oneTrackButton,   tracksOfDiscButton,        replayGainMatrix, dvdAudioDiscTime, dvdAudioDiscTimeStaticText,
        dvdAudioDiscSize, dvdAudioDiscSizeStaticText};
    for (const auto& option : options)
        option->setHidden(true);
    tableView->setShowsHeader(false);
    shrinkFileTable();
}

void UtilTab::displayRelevantOptions()
{
    hideOptions();
    const QString chosen = command();
    oneTrackButton->setHidden(chosen != extraction);
    tracksOfDiscButton->setHidden(chosen != extraction);
    replayGainMatrix->setHidden(chosen != replayGain);
    if (chosen == dvdDisc && !chooseDvd()) return;
    lastSelectedIndex_ = commandMatrix->selectedIndex();
}

bool UtilTab::chooseDvd()
{
    const int chosen = commandMatrix->selectedIndex();
    if (lastSelectedIndex_ == chosen) {
        inAMoment([this] { commandMatrix->deselectAllCells(); });
        lastSelectedIndex_ = -1;
        return false;
    }
    const int reply = panels().runAlert(u"You have chosen \"DVD Audio Disc.\" This will scan the files in the list for "
                                        "format information. Are you sure you want to continue?"_s,
                                        QString(), u"Yes"_s, u"No"_s);
    if (reply != alertReply::defaultButton) {
        inAMoment([this, former = lastSelectedIndex_] {
            former < 0 ? commandMatrix->deselectAllCells() : commandMatrix->selectIndex(former);
        });
        return false;
    }
    for (const auto& label :
         {dvdAudioDiscTime, dvdAudioDiscTimeStaticText, dvdAudioDiscSize, dvdAudioDiscSizeStaticText})
        label->setHidden(false);
    tableView->setShowsHeader(true);
    growFileTable();
    findFormatInfo();
    return true;
}

void UtilTab::inAMoment(const std::function<void()>& work)
{
    QTimer::singleShot(moment, &context_, [work] { guarded("util tab", work); });
}

void UtilTab::complain(const QString& message)
{
    panels().runAlert(u"Error"_s, message, u"OK"_s);
}

void UtilTab::executeCommand(Sender)
{
    if (fileNames().isEmpty()) return;
    const std::vector<std::pair<QString, void (UtilTab::*)()>> commands{{extraction, &UtilTab::extract},
                                                                        {renaming, &UtilTab::rename},
                                                                        {replayGain, &UtilTab::addReplayGain},
                                                                        {deEmphasis, &UtilTab::removeEmphasis},
                                                                        {dvdDisc, &UtilTab::authorDvd}};
    const QString chosen = command();
    for (const auto& [title, work] : commands) {
        if (title == chosen) return (this->*work)();
    }
}

void UtilTab::extract()
{
    const OptionalText folder = chooseOutputFolder(); // kept: a cancelled question does not stop the command
    const QString volume = path::deletingLastComponent(fileNames().at(0));
    const OptionalText disc = discIdForVolumePath(volume);
    try {
        unMountDisc(disc);
        queueExtraction(disc, volume, folder);
    } catch (const PlatformException& fault) {
        qCWarning(utilLog).noquote() << "Error" << fault.reason();
    }
    mountDisc(disc); // kept: at once, not behind the extraction
    clearFiles();
}

void UtilTab::queueExtraction(const OptionalText& disc, const QString& volume, const OptionalText& folder)
{
    const QString range = getTrackNumberForExtract(reNumberCdTracks());
    QStringList arguments;
    if (!oneTrack()) arguments += u"-B"_s;
    arguments += {u"-L"_s, u"1"_s,         u"-H"_s,    u"-t"_s,
                  range,   u"-paranoia"_s, u"-Owav"_s, u"dev="_s + textOrEmpty(getProvider(disc))};
    const auto task =
        CDExtractTask::initAsyncTaskWithQueueLaunchPathArguments(taskQueue(), tool(u"cdda2wav"_s), arguments);
    task->setTrackString(range);
    task->setOneTrack(oneTrack());
    task->setFileNames(fileNames().copy());
    task->setTitle(u"CD Tracks %1 - %2"_s.arg(range.section(u'+', 0, 0), range.section(u'+', 1)));
    task->setDiscName(path::lastComponent(volume));
    task->setDirectory(textOrEmpty(folder));
    taskQueue()->addTask(task);
}

void UtilTab::rename()
{
    const OptionalText prefix = promptForBatchNameInput();
    if (!prefix || prefix->isEmpty()) return clearFiles();
    const QStringList files = fileNames().copy(), paths = renamedPaths(files, *prefix);
    if (const OptionalText taken = firstTaken(paths)) return complain(u"File at \"%1\" already exists"_s.arg(*taken));
    moveFiles(files, paths);
    clearFiles();
}

void UtilTab::addReplayGain()
{
    const QStringList files = utilPlan::withExtensions(fileNames().copy(), {C::FLAC});
    if (files.isEmpty()) {
        complain(u"No Flac files in file list"_s);
        return clearFiles();
    }
    const bool adds = replayGainMatrix->selectedCell().title == addTitle;
    const auto task = ZOLTAsyncNSTask::initAsyncTaskWithQueueLaunchPathArguments(
        taskQueue(), tool(u"metaflac"_s),
        QStringList{adds ? u"--add-replay-gain"_s : u"--remove-replay-gain"_s} + files);
    task->setTitle(adds ? u"Adding FLAC replay gain"_s : u"Removing FLAC replay gain"_s);
    task->textField()->setStringValue(task->title());
    task->setResults(nullptr);
    task->progressIndicator()->setIndeterminate(true);
    task->progressIndicator()->startAnimation();
    taskQueue()->addTask(task);
    clearFiles();
}

void UtilTab::removeEmphasis()
{
    const OptionalText folder = chooseOutputFolder();
    if (!folder) return;
    const QStringList files = utilPlan::withExtensions(fileNames().copy(), {C::AIF, C::AIFF, C::WAV});
    if (files.isEmpty()) complain(u"No Wav/Aiff files in file list"_s);
    const auto results = std::make_shared<ZOLTTaskResults>();
    std::vector<std::shared_ptr<ZOLTTask>> tasks;
    for (const QString& file : files) {
        const QStringList arguments{u"-S"_s, file, utilPlan::deEmphasizedPath(file, *folder), u"deemph"_s};
        tasks.push_back(DeEmphasisTask::initAsyncTaskWithQueueLaunchPathArgumentsWithResults(
            taskQueue(), tool(u"sox"_s), arguments, results));
        results->addTaskInSet(tasks.back());
    }
    if (!tasks.empty()) taskQueue()->addTasks(tasks);
    clearFiles();
}

void UtilTab::authorDvd()
{
    const OptionalText folder = chooseOutputFolder();
    if (!folder) return;
    taskQueue()->addTask(DVDAuthorTask::initTaskWithQueueFileNamesOutputPath(taskQueue(), fileNames().copy(), *folder));
    clearFiles();
}

Outlets UtilTab::outlets() const
{
    return {
        {u"commandMatrix"_s, commandMatrix},
        {u"replayGainMatrix"_s, replayGainMatrix},
        {u"oneTrackButton"_s, oneTrackButton},
        {u"tracksOfDiscButton"_s, tracksOfDiscButton},
        {u"dvdAudioDiscTimeStaticText"_s, dvdAudioDiscTimeStaticText},
        {u"dvdAudioDiscTime"_s, dvdAudioDiscTime},
        {u"dvdAudioDiscSizeStaticText"_s, dvdAudioDiscSizeStaticText},
        {u"dvdAudioDiscSize"_s, dvdAudioDiscSize},
        {u"scanNote"_s, scanNote},
    };
}

WorkPlan UtilTab::workPlan() const
{
    WorkPlan plan = BaseTab::workPlan();
    const QString chosen = command();
    if (plan.files.isEmpty()) return plan;
    if (chosen.isEmpty()) plan.words = u"Choose what to do with the files"_s;
    if (chosen == extraction) utilPlan::extracting(plan, destination());
    if (chosen == renaming) utilPlan::renaming(plan);
    if (chosen == replayGain) utilPlan::gaining(plan, replayGainMatrix->selectedCell().title == addTitle);
    if (chosen == deEmphasis) utilPlan::deEmphasizing(plan, destination());
    if (chosen == dvdDisc) utilPlan::authoring(plan, destination());
    return plan;
}

} // namespace zolt
