#include "shntool/SHNtoolTab.h"

#include "engine/ZOLTAsyncNSTaskFileOutputRedirection.h"
#include "engine/ZOLTTaskQueue.h"
#include "platform/controls/DefaultsBinding.h"
#include "platform/desktop/Panels.h"
#include "platform/errors/Exceptions.h"
#include "platform/files/TextFile.h"
#include "platform/threads/NotificationCenter.h"
#include "shell/Constants.h"
#include "shntool/DiscKey.h"
#include "shntool/SHNToolJoinTask.h"
#include "shntool/SHNToolLenTask.h"
#include "shntool/SHNToolPadTask.h"
#include "shntool/SHNToolSplitTask.h"
#include "shntool/SHNToolStripTask.h"
#include "shntool/SHNToolTrimTask.h"
#include "shntool/ShntoolPlan.h"
#include "shntool/TrackNameInputController.h"

#include <QScopeGuard>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

using C = Constants;

/// The commands in the order in which they are compared, which is that of the cells too.
struct CommandRow
{
    QString title;
    void (SHNtoolTab::*handler)();
};

const std::vector<CommandRow>& commandRows()
{
    static const std::vector<CommandRow> rows{
        {C::LEN, &SHNtoolTab::handleSHNtoolLen},     {C::INFO, &SHNtoolTab::handleSHNtoolInfo},
        {C::CMP, &SHNtoolTab::handleSHNtoolCompare}, {C::TRIM, &SHNtoolTab::handleSHNtoolTrim},
        {C::SPLIT, &SHNtoolTab::handleSHNtoolSplit}, {C::JOIN, &SHNtoolTab::handleSHNtoolJoin},
        {C::CUE, &SHNtoolTab::handleSHNtoolCue},     {C::PAD, &SHNtoolTab::handleSHNtoolPad},
        {C::STRIP, &SHNtoolTab::handleSHNtoolStrip},
    };
    return rows;
}

QStringList commandTitles()
{
    QStringList titles;
    for (const CommandRow& row : commandRows())
        titles += row.title;
    return titles;
}

QStringList lastComponents(const QStringList& files)
{
    QStringList names;
    for (const QString& file : files)
        names += path::lastComponent(file);
    return names;
}

QString tool(const BaseTab& tab)
{
    return path::appendingComponent(tab.pathToCommandLineTools(), u"shntool"_s);
}

std::optional<QStringList> orNone(const QStringList& names)
{
    return names.isEmpty() ? std::nullopt : std::optional(names);
}

void animate(const ZOLTTask& task)
{
    task.progressIndicator()->setIndeterminate(true);
    task.progressIndicator()->startAnimation();
}

} // namespace

SHNtoolTab::SHNtoolTab()
    : shntoolCommandMatrix(std::make_shared<Matrix>(int(commandRows().size()), 1, commandTitles())),
      outputFormatMatrix(std::make_shared<Matrix>(2, 2, QStringList{C::SHN, C::FLAC, C::AIFF, C::WAV})),
      shnLenMatrix(std::make_shared<Matrix>(3, 1, QStringList{C::NORMAL_LEN_OUTPUT, C::LEN_BY_FILESET, C::LEN_BY_DISC}))
{
    bindToDefault(*shntoolCommandMatrix, u"shntoolCommandOption"_s);
    bindToDefault(*shnLenMatrix, u"shntoolLenOption"_s);
    bindToDefault(*outputFormatMatrix, u"shntoolOutputFormat"_s);
    shntoolCommandMatrix->setAction([this] { changeDisplayOptions(shntoolCommandMatrix.get()); });
    shnLenMatrix->setAction([this] { changeDisplayOptions(shnLenMatrix.get()); });
    namesButton->setAction([this] { showNamesWindow(namesButton.get()); });
    NotificationCenter::standard().addObserver(this, C::ZOLTTrackNamesEnteredNotification, nullptr,
                                               [this](const Notification& posted) { trackNamesEntered(posted); });
}

SHNtoolTab::~SHNtoolTab()
{
    NotificationCenter::standard().removeObserver(this, C::ZOLTTrackNamesEnteredNotification, nullptr);
}

void SHNtoolTab::awakeFromNib()
{
    BaseTab::awakeFromNib();
    displayRelevantOptions();
}

QString SHNtoolTab::command() const
{
    return shntoolCommandMatrix->selectedCell().title;
}

QString SHNtoolTab::format() const
{
    return outputFormatMatrix->selectedCell().title.toUpper().toLower();
}

QString SHNtoolTab::lenType() const
{
    return shnLenMatrix->selectedCell().title;
}

template <class Task> std::shared_ptr<Task> SHNtoolTab::made(const QStringList& arguments) const
{
    return Task::initAsyncTaskWithQueueLaunchPathArguments(taskQueue(), tool(*this), arguments);
}

std::optional<SHNtoolTab::Writing> SHNtoolTab::chooseWriting() const
{
    const QString wanted = format();
    const OptionalText folder = chooseOutputFolder();
    return folder ? std::optional(Writing{wanted, *folder}) : std::nullopt;
}

OptionalText SHNtoolTab::chooseSplitPointFile() const
{
    try {
        const auto chosen = panels().openPanel(
            {.title = u"Choose file with split point data"_s, .prompt = {}, .fileTypes = {u"cue"_s, u"txt"_s}});
        return chosen && !chosen->isEmpty() ? OptionalText(chosen->first()) : std::nullopt;
    } catch (const PlatformException&) {
        return std::nullopt;
    }
}

int SHNtoolTab::getMaxTrackNamesLength(const QStringList& names)
{
    qsizetype longest = 0;
    for (const QString& name : names)
        longest = std::max(longest, name.size());
    return int(longest);
}

void SHNtoolTab::trackNamesEntered(const Notification& notification)
{
    const auto* const entered = std::any_cast<QStringList>(&notification.object);
    names = orNone(entered ? *entered : QStringList());
}

void SHNtoolTab::setTrackNameWindow(const std::shared_ptr<TrackNameInputController>& window)
{
    trackNamesWindow_ = window;
}

void SHNtoolTab::showNamesWindow(Sender sender)
{
    if (!trackNamesWindow_) return;
    if (!trackNamesWindow_->isWindowLoaded()) trackNamesWindow_->loadWindow();
    trackNamesWindow_->showWindow(sender);
}

void SHNtoolTab::handleSHNtoolCue()
{
    const OptionalText sheet = openSavePanelTitle(u"cuesheet.cue"_s, u"Save CUE sheet as"_s);
    if (!sheet) return;
    const auto task = ZOLTAsyncNSTaskFileOutputRedirection::initWithFileNameQueueLaunchPathArguments(
        *sheet, taskQueue(), tool(*this), QStringList{u"cue"_s, u"-c"_s} + fileNames().copy());
    task->setTitle(u"Creating CUE sheet"_s);
    task->setSubTitle(u"Processing"_s);
    taskQueue()->addTask(task);
}

void SHNtoolTab::handleSHNtoolJoin()
{
    const auto to = chooseWriting();
    if (!to) return;
    taskQueue()->addTask(made<SHNToolJoinTask>(
        QStringList{u"join"_s, u"-o"_s, to->format, u"-n"_s, u"-d"_s, to->folder, u"-O"_s, u"never"_s} +
        fileNames().copy()));
}

void SHNtoolTab::handleSHNtoolSplit()
{
    splitPointProblem_.clear();
    const OptionalText points = chooseSplitPointFile();
    if (!points) return;
    const auto to = chooseWriting();
    if (!to) return;
    const OptionalText text = readTextInThreeTries(*points, UnreadableLine::PathTextAndReason);
    if (!text) {
        splitPointProblem_ = unreadableTextInWords(*points);
        return;
    }
    const QString file = fileNames().at(0);
    const auto task =
        made<SHNToolSplitTask>({u"split"_s, u"-f"_s, *points, u"-o"_s, to->format, u"-d"_s, to->folder, file});
    task->setTitle(path::lastComponent(file));
    task->setTrackTitleMap(trackTitles(*text, to->format));
    task->setOutputPath(to->folder);
    taskQueue()->addTask(task);
}

template <class Task> void SHNtoolTab::queueEach(const QString& command, const QString& title)
{
    const auto to = chooseWriting();
    if (!to) return;
    for (const QString& file : fileNames().copy()) {
        // The tasks take their file by its place in here.
        const auto task = made<Task>({command, u"-d"_s, to->folder, u"-o"_s, to->format, u"-O"_s, u"never"_s, file});
        task->setTitle(title);
        task->setSource(file);
        taskQueue()->addTask(task);
    }
}

void SHNtoolTab::handleSHNtoolStrip()
{
    queueEach<SHNToolStripTask>(C::STRIP, u"Running SHNTool Strip"_s);
}

void SHNtoolTab::handleSHNtoolPad()
{
    queueEach<SHNToolPadTask>(C::PAD, u"Running SHNTool Pad"_s);
}

void SHNtoolTab::handleSHNtoolTrim()
{
    const auto to = chooseWriting();
    if (!to) return;
    const auto task = made<SHNToolTrimTask>(
        QStringList{u"trim"_s, u"-d"_s, to->folder, u"-o"_s, to->format, u"-O"_s, u"never"_s} + fileNames().copy());
    task->setTitle(u"Running SHNTool Trim"_s);
    taskQueue()->addTask(task);
}

void SHNtoolTab::handleSHNtoolCompare()
{
    const auto task = made<ZOLTAsyncNSTask>(QStringList{u"cmp"_s} + fileNames().copy());
    task->setTitle(u"shntool compare"_s);
    task->topTextField()->setStringValue(u"Comparing"_s);
    task->textField()->setStringValue(u"Comparing"_s);
    animate(*task);
    taskQueue()->addTask(task);
}

void SHNtoolTab::handleSHNtoolInfo()
{
    const auto task = made<ZOLTAsyncNSTask>(QStringList{u"info"_s} + fileNames().copy());
    task->setTitle(u"Running SHNTool Info"_s);
    task->textField()->setStringValue(task->title());
    animate(*task);
    taskQueue()->addTask(task);
}

void SHNtoolTab::completeNames(const QStringList& files)
{
    if (!names)
        names = lastComponents(files);
    else if (names->size() < files.size())
        // Kept: one place too early, so that the list is one longer and what is added lies behind its file.
        *names += lastComponents(files.sliced(std::max<qsizetype>(0, names->size() - 1)));
}

void SHNtoolTab::queueLenByDisc(const QStringList& files, int width)
{
    const auto results = std::make_shared<ZOLTTaskResults>();
    std::vector<std::shared_ptr<ZOLTTask>> tasks;
    qsizetype offset = 0;
    for (const DiscFiles& disc : filesByDisc(files)) {
        const qsizetype count = disc.files.size();
        const auto task = SHNToolLenTask::initWithResultsQueueLaunchPathArgumentsLenType(
            results, taskQueue(), tool(*this), QStringList{u"len"_s} + disc.files, lenType());
        if (offset + count <= names->size()) task->setTrackNames(names->sliced(offset, count));
        task->setMaxTrackNameLength(width);
        task->setDiscNumber(disc.key);
        offset += count;
        results->addTaskInSet(task);
        tasks.push_back(task);
    }
    taskQueue()->addTasks(tasks);
}

void SHNtoolTab::handleSHNtoolLen()
{
    const QStringList files = fileNames().copy();
    completeNames(files);
    const int width = getMaxTrackNamesLength(*names);
    if (lenType() == C::LEN_BY_DISC) return queueLenByDisc(files, width);
    const auto task = SHNToolLenTask::initWithQueueLaunchPathArgumentsLenType(taskQueue(), tool(*this),
                                                                              QStringList{u"len"_s} + files, lenType());
    if (lenType() == C::LEN_BY_FILESET) {
        task->setTrackNames(*names);
        task->setMaxTrackNameLength(width);
    }
    taskQueue()->addTask(task);
}

void SHNtoolTab::executeCommand(Sender)
{
    if (fileNames().isEmpty()) return;
    const QString selected = command();
    const auto row = std::find_if(commandRows().begin(), commandRows().end(),
                                  [&](const CommandRow& each) { return each.title == selected; });
    if (row != commandRows().end()) (this->*row->handler)();
    clearFiles();
}

void SHNtoolTab::executeCommandWithout(const QList<qsizetype>& rows)
{
    if (!names || rows.isEmpty()) return BaseTab::executeCommandWithout(rows);
    const qsizetype count = fileNames().count();
    QStringList pressed, aside;
    for (qsizetype row = 0; row < names->size(); ++row)
        (rows.contains(row) ? aside : pressed) += names->at(row);
    const auto whole = std::exchange(names, orNone(pressed));
    const auto back = qScopeGuard([&] { names = fileNames().count() < count ? orNone(aside) : whole; });
    BaseTab::executeCommandWithout(rows);
}

void SHNtoolTab::displayRelevantOptions()
{
    const QString selected = command();
    const bool writes = selected == C::JOIN || selected == C::SPLIT || selected == C::TRIM;
    const bool measures = selected == C::LEN;
    outputFormatText->setHidden(!writes);
    outputFormatMatrix->setHidden(!writes);
    shnLenMatrix->setHidden(!measures);
    namesButton->setHidden(!measures || lenType() == C::NORMAL_LEN_OUTPUT);
}

Outlets SHNtoolTab::outlets() const
{
    return {{u"shntoolCommandMatrix"_s, shntoolCommandMatrix},
            {u"outputFormatText"_s, outputFormatText},
            {u"outputFormatMatrix"_s, outputFormatMatrix},
            {u"shnLenMatrix"_s, shnLenMatrix},
            {u"namesButton"_s, namesButton}};
}

QString SHNtoolTab::aboutCommand() const
{
    const QString about = shntoolPlan::aboutCommand(command());
    const bool tells = command() == C::SPLIT && !splitPointProblem_.isEmpty();
    return tells ? splitPointProblem_ + u"\n\n"_s + about : about;
}

WorkPlan SHNtoolTab::workPlan() const
{
    WorkPlan plan = BaseTab::workPlan();
    shntoolPlan::plan(plan, command(), format(), destination());
    return plan;
}

} // namespace zolt
