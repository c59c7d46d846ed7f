#include "util/UtilTab.h"

#include "engine/ZOLTTaskQueue.h"
#include "engine/ZOLTTaskResults.h"
#include "platform/desktop/Panels.h"
#include "platform/errors/Exceptions.h"
#include "platform/text/Counts.h"
#include "shell/Constants.h"
#include "shell/ZOLTStringGetterPanel.h"
#include "util/BatchRename.h"
#include "util/DeEmphasisTask.h"
#include "util/UtilPlan.h"

#include <QTimer>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

using C = Constants;

constexpr int moment = 100; // milliseconds

const QString addTitle = u"Add"_s;

} // namespace

UtilTab::UtilTab()
    : commandMatrix(std::make_shared<Matrix>(int(commands().size()), 1, commandTitles())),
      replayGainMatrix(std::make_shared<Matrix>(2, 1, QStringList{addTitle, u"Remove"_s}))
{
    tableView->setHeaderView(std::make_shared<TableHeader>());
    oneTrackButton->setTitle(u"All tracks into one file"_s);
    dvdAudioDiscTimeStaticText->setStringValue(u"Length:"_s);
    dvdAudioDiscSizeStaticText->setStringValue(u"Size:"_s);
    tracksOfDiscButton->setTitle(u"Tracks of Disc"_s);
    tracksOfDiscButton->setAction([this] { addTracksOfDisc(tracksOfDiscButton.get()); });
    commandMatrix->setAction([this] { changeDisplayOptions(commandMatrix.get()); });
}

OptionalText UtilTab::promptForBatchNameInput() const
{
    if (prefix_) return prefix_;
    ZOLTStringGetterPanel panel;
    return panel.runPanelWithTitleMessageInitialString(
        u"Batch Rename"_s, u"Enter the Prefix that you want the files to start with:"_s, u""_s);
}

QStringList UtilTab::commandTitles()
{
    QStringList titles;
    for (const Command& each : commands())
        titles += each.title;
    return titles;
}

QString UtilTab::tool(const QString& name) const
{
    return path::appendingComponent(pathToCommandLineTools(), name);
}

void UtilTab::clearFiles()
{
    formatObjects_.clear();
    dvdAudioDiscTime->setStringValue(QString());
    dvdAudioDiscSize->setStringValue(QString());
    scanNote->setStringValue(QString());
    BaseTab::clearFiles();
}

void UtilTab::hideOptions()
{
    const std::vector<std::shared_ptr<Control>> options{
        oneTrackButton,   tracksOfDiscButton,        replayGainMatrix, dvdAudioDiscTime, dvdAudioDiscTimeStaticText,
        dvdAudioDiscSize, dvdAudioDiscSizeStaticText};
    for (const auto& option : options)
        option->setHidden(true);
    tableView->setHeaderView(nullptr);
    scrollView->display();
    scanNote->setStringValue(QString());
    shrinkFileTable();
}

void UtilTab::displayRelevantOptions()
{
    if (!tableHeader_) tableHeader_ = tableView->headerView();
    hideOptions();
    const QString chosen = command();
    oneTrackButton->setHidden(chosen != extraction);
    tracksOfDiscButton->setHidden(chosen != extraction);
    replayGainMatrix->setHidden(chosen != replayGain);
    if (chosen == dvdDisc && !chooseDvd()) return;
    commandMatrixLastSelectedCell_ = commandMatrix->selectedIndex();
}

void UtilTab::inAMoment(const std::function<void()>& work)
{
    QTimer::singleShot(moment, &context_, [work] { guarded("util tab", work); });
}

void UtilTab::complain(const QString& message)
{
    panels().runAlert(u"Error"_s, message, u"OK"_s);
}

const std::vector<UtilTab::Command>& UtilTab::commands()
{
    static const std::vector<Command> table{
        {extraction, &UtilTab::extract, &UtilTab::planExtraction},
        {renaming, &UtilTab::rename, &UtilTab::planRenaming},
        {replayGain, &UtilTab::addReplayGain, &UtilTab::planReplayGain},
        {deEmphasis, &UtilTab::removeEmphasis, &UtilTab::planDeEmphasis},
        {dvdDisc, &UtilTab::authorDvd, &UtilTab::planDvd},
    };
    return table;
}

const UtilTab::Command* UtilTab::chosenCommand() const
{
    const auto found = std::find_if(commands().begin(), commands().end(),
                                    [chosen = command()](const Command& each) { return each.title == chosen; });
    return found == commands().end() ? nullptr : &*found;
}

void UtilTab::executeCommand(Sender)
{
    if (fileNames().isEmpty()) return;
    if (const Command* const chosen = chosenCommand()) (this->*chosen->work)();
}

void UtilTab::rename()
{
    const OptionalText prefix = promptForBatchNameInput();
    if (!prefix || prefix->isEmpty()) return clearFiles();
    const QStringList files = fileNames().copy(), paths = renamedPaths(files, *prefix);
    if (const OptionalText taken = firstTaken(paths)) return complain(u"File at \"%1\" already exists"_s.arg(*taken));
    const qsizetype moved = moveFiles(files, paths), kept = files.size() - moved;
    clearFiles();
    scanNote->setStringValue(counted(moved, u"file"_s) + u" renamed"_s +
                             (kept > 0 ? u"; %1 could not be"_s.arg(kept) : QString()));
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

Outlets UtilTab::outlets() const
{
    return {
        {u"commandMatrix"_s, commandMatrix},           {u"replayGainMatrix"_s, replayGainMatrix},
        {u"oneTrackButton"_s, oneTrackButton},         {u"scrollView"_s, scrollView},
        {u"tracksOfDiscButton"_s, tracksOfDiscButton}, {u"dvdAudioDiscTimeStaticText"_s, dvdAudioDiscTimeStaticText},
        {u"dvdAudioDiscTime"_s, dvdAudioDiscTime},     {u"dvdAudioDiscSizeStaticText"_s, dvdAudioDiscSizeStaticText},
        {u"dvdAudioDiscSize"_s, dvdAudioDiscSize},     {u"scanNote"_s, scanNote},
    };
}

WorkPlan UtilTab::workPlan() const
{
    WorkPlan plan = BaseTab::workPlan();
    if (plan.files.isEmpty()) return plan;
    if (const Command* const chosen = chosenCommand())
        (this->*chosen->plan)(plan);
    else
        plan.words = u"Choose what to do with the files"_s;
    return plan;
}

void UtilTab::planRenaming(WorkPlan& plan) const
{
    utilPlan::renaming(plan);
}

void UtilTab::planReplayGain(WorkPlan& plan) const
{
    utilPlan::gaining(plan, replayGainMatrix->selectedCell().title == addTitle);
}

void UtilTab::planDeEmphasis(WorkPlan& plan) const
{
    utilPlan::deEmphasizing(plan, destination());
}

} // namespace zolt
