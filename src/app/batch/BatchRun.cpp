#include "app/batch/BatchRun.h"

#include "app/batch/Console.h"
#include "app/batch/InputFiles.h"
#include "app/batch/JsonRows.h"
#include "app/batch/LiveRows.h"
#include "app/batch/NewFolder.h"
#include "engine/OutputWindowController.h"
#include "engine/ZOLTTask.h"
#include "engine/ZOLTTaskQueue.h"
#include "platform/desktop/UserDefaults.h"
#include "platform/errors/Exceptions.h"
#include "platform/files/Files.h"
#include "platform/process/ChildProcess.h"
#include "platform/text/Counts.h"
#include "platform/threads/DetachedThreads.h"
#include "platform/threads/MainQueue.h"
#include "shell/BaseTab.h"
#include "shell/Outlook.h"
#include "shell/ZOLTController.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QSet>

#include <algorithm>
#include <csignal>
#include <cstdlib>

#include <unistd.h>

namespace zolt::batch {

using namespace Qt::StringLiterals;

namespace {

constexpr int millisecondsBetweenStops = 50;

BatchOptions withAbsolutePaths(BatchOptions options)
{
    options.files = absolutePaths(options.files);
    for (const QString& path : {u"out"_s, u"points"_s, u"cue"_s, u"cover"_s}) {
        if (options.has(path)) options.options[path] = absolutePaths({options.value(path)}).first();
    }
    return options;
}

OptionalText fileToAnswerWith(const BatchOptions& options)
{
    for (const QString& option : {u"points"_s, u"cue"_s})
        if (options.has(option)) return options.value(option);
    return std::nullopt;
}

BatchPanels::Answers answersOf(const BatchOptions& options, int interruptDescriptor)
{
    return {.yes = options.has(u"yes"_s),
            .terminal = ::isatty(STDIN_FILENO) == 1,
            .file = fileToAnswerWith(options),
            .savePath = options.has(u"out"_s) ? OptionalText(options.value(u"out"_s)) : std::nullopt,
            .interruptDescriptor = interruptDescriptor};
}

std::unique_ptr<RowPrinter> makeRows(const BatchOptions& options)
{
    if (options.has(u"json"_s)) return std::make_unique<JsonRows>();
    if (::isatty(STDOUT_FILENO) == 1) return std::make_unique<LiveRows>();
    return std::make_unique<LineRows>();
}

/// The settings of this run lie above the user's and are not saved.
void overlaySettings(const BatchOptions& options)
{
    UserDefaults::standard().keepInMemory();
    if (options.has(u"jobs"_s)) UserDefaults::standard().set(u"maxThreads"_s, options.value(u"jobs"_s).toInt());
}

/// Nobody is there to look at it again: what a tool would only find out later is refused now.
bool preventsStart(OutlookProblem::Kind kind)
{
    using Kind = OutlookProblem::Kind;
    return kind == Kind::MissingTool || kind == Kind::MissingFolder || kind == Kind::Collision;
}

/// Whether the command writes its option's one file, such as a list of sums: no tool tells if that fails.
bool writesOneFile(const CommandSyntax& syntax)
{
    return std::any_of(syntax.options.begin(), syntax.options.end(),
                       [](const OptionSyntax& each) { return each.name == u"out" && each.value == u"FILE"; });
}

/// A sentence for the user why nothing can be written at the path; empty where something may.
QString faultOfNewFile(const QString& path)
{
    const QString folder = path::deletingLastComponent(path);
    if (isDirectory(path)) return onOneLine(path) + u" is a folder"_s;
    if (!isDirectory(folder)) return u"the folder %1 is not there"_s.arg(onOneLine(folder));
    if (!LocalDisk().isWritable(folder)) return u"the folder %1 cannot be written to"_s.arg(onOneLine(folder));
    return {};
}

/// The rows of a command without tasks, to be summed up as those of the queue are.
Run runOf(const std::vector<RunRow>& rows, qint64 milliseconds)
{
    Run run{.rows = {rows.begin(), rows.end()}, .milliseconds = milliseconds};
    const auto count = [&rows](Outcome outcome) { return std::ranges::count(rows, outcome, &RunRow::outcome); };
    run.complete = count(Outcome::Complete);
    run.failed = count(Outcome::Failed);
    run.canceled = count(Outcome::Canceled);
    return run;
}

void takeUpSignals()
{
    QCoreApplication::processEvents();
}

} // namespace

BatchRun::BatchRun(BatchOptions options)
    : options_(withAbsolutePaths(std::move(options))), command_(batchCommand(options_.command)),
      interrupts_([this](int signal) { interrupted(signal); }), panels_(answersOf(options_, interrupts_.descriptor())),
      rows_(makeRows(options_))
{
    QObject::connect(&stopTick_, &QTimer::timeout, &stopTick_, [] { ChildProcess::terminateAll(); });
    overlaySettings(options_);
    installPanels(&panels_);
    program_ = std::make_unique<Program>();
    program_->controller().setWalksInBackground(true); // a signal is heard during a long one
    program_->record().addListener(this);
}

BatchRun::~BatchRun()
{
    program_->record().removeListener(this);
    program_.reset();
    installPanels(nullptr);
}

ZOLTTaskQueue& BatchRun::queue()
{
    return *program_->controller().taskQueue();
}

int BatchRun::run()
{
    if (const QString fault = UserDefaults::standard().complaint(); !fault.isEmpty()) rows_->note(fault);
    BaseTab& tab = command_.setUp(*program_, options_);
    tab_ = &tab;
    if (enterFiles(tab)) {
        if (command_.answer)
            answer(tab);
        else
            work(tab);
    }
    program_->finish();
    rows_->finish();
    if (!options_.has(u"json"_s)) printReports();
    printSummary();
    return status();
}

void BatchRun::answer(const BaseTab& tab)
{
    print(stdout, command_.answer(tab));
    pressed_ = true;
}

void BatchRun::work(BaseTab& tab)
{
    const QString folder = folderOfOutputs(tab);
    NewFolder made(folder);
    if (!canWriteFile(tab)) return;
    if (command_.ready && !command_.ready(tab, options_)) return;
    if (!mayStart(tab)) return;
    if (made.keep()) rows_->note(u"made the folder "_s + onOneLine(folder));
    if (command_.atOnce) return workAtOnce(tab);
    press(tab);
    waitForAll();
    tellOfFile();
}

/// Of the one file that the command writes: what no row tells.
void BatchRun::tellOfFile()
{
    if (file_.isEmpty() || !pressed_ || anyFailed_ || signal_ != 0) return;
    if (!exists(file_)) return refuse(onOneLine(file_) + u" could not be written"_s);
    if (!program_->record().current()) rows_->note(u"wrote "_s + onOneLine(file_));
}

/// Finds out which file it is that the command writes, if it is one.
bool BatchRun::canWriteFile(const BaseTab& tab)
{
    if (!writesOneFile(command_.syntax)) return true;
    const WorkPlan plan = tab.workPlan();
    const bool isKnown = !plan.items.empty() && !plan.items.front().outputs.isEmpty();
    file_ = options_.value(u"out"_s, isKnown ? plan.items.front().outputs.first() : QString());
    const QString fault = file_.isEmpty() ? QString() : faultOfNewFile(file_);
    if (!fault.isEmpty()) refuse(fault);
    return fault.isEmpty();
}

void BatchRun::workAtOnce(BaseTab& tab)
{
    QElapsedTimer sinceStart;
    sinceStart.start();
    const Done done = command_.atOnce(tab, options_, [this] {
        takeUpSignals();
        return signal_ == 0;
    });
    const qint64 milliseconds = sinceStart.elapsed();
    print(stdout, done.text);
    for (const RunRow& row : done.rows) {
        rowAdded(row);
        rowEnded(row);
        rowClosed(row);
    }
    for (const QString& fault : done.faults)
        refuse(onOneLine(fault));
    pressed_ = !done.rows.empty() || !done.text.isEmpty();
    if (!done.rows.empty()) atOnce_ = runOf(done.rows, milliseconds);
}

void BatchRun::refuse(const QString& text)
{
    anyFailed_ = true;
    rows_->note(text);
}

bool BatchRun::enterFiles(BaseTab& tab)
{
    InputFiles inputs(tab, options_);
    const QStringList leftOut = inputs.enter();
    if (signal_ != 0) return false; // given up halfway: nothing can be said of what is not there
    for (const QString& each : leftOut)
        refuse(each);
    if (inputs.otherKinds() > 0) rows_->note(counted(inputs.otherKinds(), u"file"_s) + u" of other kinds left alone"_s);
    const QString said = command_.note ? command_.note(tab) : QString();
    if (!said.isEmpty()) refuse(onOneLine(said));
    if (tab.fileNames().isEmpty()) rows_->note(u"nothing to %1"_s.arg(options_.command));
    return !tab.fileNames().isEmpty();
}

QString BatchRun::folderOfOutputs(const BaseTab& tab) const
{
    const bool isFile = writesOneFile(command_.syntax) && options_.has(u"out"_s);
    return isFile ? path::deletingLastComponent(options_.value(u"out"_s)) : textOrEmpty(tab.destination());
}

void BatchRun::leaveOut(const Outlook& outlook)
{
    if (!options_.has(u"skip-existing"_s)) return;
    QSet<qsizetype> rows;
    for (const OutlookProblem& problem : outlook.problems) {
        if (problem.kind == OutlookProblem::Kind::Existing) rows.unite({problem.rows.begin(), problem.rows.end()});
    }
    leftOut_ = rows.values();
    std::sort(leftOut_.begin(), leftOut_.end());
    if (!leftOut_.isEmpty()) rows_->note(counted(leftOut_.size(), u"file"_s) + u" left out: the outputs exist"_s);
}

bool BatchRun::mayStart(const BaseTab& tab)
{
    const WorkPlan plan = tab.workPlan();
    for (const WorkItem& item : plan.items)
        outputs_[item.source] += item.outputs;
    const std::atomic<bool> stop = false;
    Outlook outlook = outlookOf(plan, LocalDisk(), stop);
    leaveOut(outlook);
    if (!leftOut_.isEmpty()) outlook = outlookOf(tab.workPlanWithout(leftOut_), LocalDisk(), stop);
    bool may = true;
    for (const OutlookProblem& problem : outlook.problems) {
        const QStringList told = problem.details.isEmpty() ? QStringList{problem.text} : problem.details;
        const bool stops = preventsStart(problem.kind);
        may = may && !stops;
        for (const QString& sentence : told)
            stops ? refuse(onOneLine(sentence)) : rows_->note(onOneLine(sentence));
    }
    return may;
}

void BatchRun::press(BaseTab& tab)
{
    takeUpSignals(); // one that came during a long walk
    if (signal_ != 0) return;
    try {
        tab.executeCommandWithout(leftOut_);
        // A command that worked at once, without a task, or one for which all was done before.
        pressed_ = tab.fileNames().isEmpty() || !leftOut_.isEmpty() || panels_.toldError();
        anyFailed_ = anyFailed_ || panels_.toldError();
    } catch (const PlatformException& fault) {
        giveUp(fault);
    }
    takeUpSignals(); // one that answered a question
}

void BatchRun::giveUp(const PlatformException& fault)
{
    if (!queue().lock().isHeld()) return refuse(fault.reason()); // what is queued by now goes on to its end
    // Locked for good behind a tool that could not be started: no report can come any more.
    complain(fault.reason());
    ChildProcess::terminateAll();
    std::_Exit(exitStatus::failed);
}

void BatchRun::rowAdded(const RunRow& row)
{
    rows_->added(row);
}

void BatchRun::rowEnded(const RunRow& row)
{
    rows_->ended(row);
    anyFailed_ = anyFailed_ || row.outcome != Outcome::Complete;
}

void BatchRun::rowReported(const RunRow& row)
{
    anyFailed_ = anyFailed_ || row.verdict.failed(); // a list of sums that names a bad file is complete all the same
}

void BatchRun::rowClosed(const RunRow& row)
{
    rows_->closed(row, outputs_.value(row.source));
}

bool BatchRun::settled() const
{
    // In this order: a thread posts what it leaves behind before it stops counting, and what is posted may add tasks.
    return detachedThreadCount() == 0 && MainQueue::instance().isEmpty() && !program_->record().isRunning();
}

void BatchRun::waitForAll()
{
    QEventLoop loop;
    while (!settled())
        loop.processEvents(QEventLoop::WaitForMoreEvents);
}

void BatchRun::interrupted(int signal)
{
    const bool first = signal_ == 0;
    if (first) signal_ = signal;
    if (tab_) tab_->stopTakingIn();
    if (!first || signal != SIGINT) return stopNow();
    if (queue().taskCount() > 0)
        rows_->note(u"canceling; running tools go on to their end. Ctrl-C once more ends them."_s);
    queue().endEverything([this] { queue().cancelAllTasks(nullptr); });
}

void BatchRun::stopNow()
{
    interrupts_.letGo();
    stopTick_.start(millisecondsBetweenStops); // again and again: an end lets the queue start the next
    queue().endEverything([this] {
        ChildProcess::terminateAll(); // all are cancelled by now: a tool may report success for what it was ended in
        queue().cancelAllTasks(nullptr);
    });
}

void BatchRun::printReports() const
{
    for (const auto& window : program_->controller().taskQueue()->outputWindows()) {
        const QString text = window->textField()->string();
        print(stdout,
              u'\n' + onOneLine(window->window()->title()) + u'\n' + text + (text.endsWith(u'\n') ? u""_s : u"\n"_s));
    }
}

void BatchRun::printSummary() const
{
    const Run* const run = atOnce_ ? &*atOnce_ : program_->record().current();
    if (run) print(stderr, inWords(*run) + u'\n');
}

int BatchRun::status() const
{
    if (signal_ != 0) return exitStatus::signalBase + signal_;
    if (!program_->record().current() && !pressed_) return exitStatus::nothingToDo;
    return anyFailed_ ? exitStatus::failed : exitStatus::allComplete;
}

} // namespace zolt::batch
