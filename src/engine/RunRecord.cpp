#include "engine/RunRecord.h"

#include "engine/ZOLTTask.h"
#include "engine/ZOLTTaskQueue.h"
#include "platform/errors/Exceptions.h"
#include "platform/files/Files.h"
#include "platform/text/Counts.h"
#include "platform/threads/DetachedThreads.h"
#include "platform/threads/MainQueue.h"

#include <algorithm>
#include <chrono>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

constexpr int eventsAtOnce = 256; // of ten thousand rows; a person may press something between these and the next

qint64 steadyMilliseconds()
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

RunProgress::Part partOf(Outcome outcome)
{
    if (!hasEnded(outcome)) return RunProgress::Part::Open;
    return outcome == Outcome::Canceled ? RunProgress::Part::Canceled : RunProgress::Part::Worked;
}

qsizetype& counterOf(Run& run, Outcome outcome)
{
    if (outcome == Outcome::Complete) return run.complete;
    return outcome == Outcome::Failed ? run.failed : run.canceled;
}

} // namespace

RunRecord::RunRecord(ZOLTTaskQueue& queue, Clock clock, Sizes sizes)
    : queue_(queue), clock_(clock ? std::move(clock) : Clock(steadyMilliseconds)),
      sizes_(sizes ? std::move(sizes) : Sizes(fileSize)), self_(std::make_shared<RunRecord*>(this))
{
    queue_.setListener(this);
}

RunRecord::~RunRecord()
{
    queue_.setListener(nullptr);
    *self_ = nullptr;
}

void RunRecord::addListener(RunListener* listener)
{
    listeners_.push_back(listener);
}

void RunRecord::removeListener(RunListener* listener)
{
    std::erase(listeners_, listener);
}

void RunRecord::tell(const std::function<void(RunListener&)>& what)
{
    const auto listeners = listeners_; // one may come or go meanwhile
    for (RunListener* const listener : listeners) {
        if (std::find(listeners_.begin(), listeners_.end(), listener) != listeners_.end()) what(*listener);
    }
}

// What the queue tells, on any thread --------------------------------------------------------------------------

void RunRecord::taskAdded(const std::shared_ptr<ZOLTTask>& task)
{
    note({.kind = Event::Kind::Added, .task = task, .at = clock_()});
}

void RunRecord::taskStarted(const std::shared_ptr<ZOLTTask>& task)
{
    note({.kind = Event::Kind::Started, .task = task, .at = clock_()});
}

void RunRecord::taskEnded(const std::shared_ptr<ZOLTTask>& task)
{
    Event event{.kind = Event::Kind::Ended, .task = task, .at = clock_(), .outcome = outcomeOf(*task)};
    if (const auto results = task->results()) {
        event.report = results->resultsOfTask(task.get());
        event.notes = results->notesOfTask(event.task.get());
    }
    note(std::move(event));
}

void RunRecord::taskReported(const std::shared_ptr<ZOLTTask>& task, const OptionalText& text)
{
    const auto results = text ? task->results() : nullptr;
    const auto notes = results ? results->notes() : ReportNotes();
    note({.kind = Event::Kind::Reported, .task = task, .at = clock_(), .report = text, .notes = notes});
}

void RunRecord::note(Event event)
{
    const std::lock_guard guard(mutex_);
    events_.push_back(std::move(event));
    deliverSoon();
}

void RunRecord::deliverSoon()
{
    if (std::exchange(posted_, true)) return;
    postToMain([self = self_] {
        if (*self) (*self)->deliver();
    });
}

// The same on the main thread -----------------------------------------------------------------------------------

bool RunRecord::take(Event& event)
{
    const std::lock_guard guard(mutex_);
    posted_ = false; // a listener may wait in an event loop of its own, which goes on with what comes
    if (events_.empty()) return false;
    event = std::move(events_.front());
    events_.pop_front();
    return true;
}

void RunRecord::deliver()
{
    const auto self = self_; // a listener may be the record's end
    Event event;
    for (int handled = 0; handled < eventsAtOnce; ++handled) {
        if (!take(event)) return endRunSoon();
        handle(event);
        if (!*self) return;
    }
    const std::lock_guard guard(mutex_);
    deliverSoon(); // the rest, behind what else waits for the main thread
}

void RunRecord::handle(const Event& event)
{
    lastAt_ = event.at;
    switch (event.kind) {
    case Event::Kind::Added:
        return add(event);
    case Event::Kind::Started:
        return start(event);
    case Event::Kind::Ended:
        return end(event);
    case Event::Kind::Reported:
        return report(event);
    }
}

void RunRecord::beginRun(qint64 at)
{
    runs_.push_back(std::make_unique<Run>());
    runs_.back()->begunAt = QDateTime::currentDateTime();
    running_ = true;
    weights_ = {};
    unmeasured_.clear();
    begunAt_ = at;
    workedBefore_ = 0;
    tell([this](RunListener& listener) { listener.runBegan(*runs_.back()); });
}

void RunRecord::add(const Event& event)
{
    if (!running_) beginRun(event.at);
    auto& rows = runs_.back()->rows;
    RunRow& row = rows.emplace_back(
        RunRow{.title = nameOf(*event.task), .source = event.task->source(), .origin = event.task->origin()});
    row.task = event.task;
    open_[event.task.get()] = {.row = &row};
    weights_.add(row.bytes);
    if (!row.source.isEmpty()) unmeasured_.push_back(&row);
    tell([&row](RunListener& listener) { listener.rowAdded(row); });
}

void RunRecord::start(const Event& event)
{
    const auto found = open_.find(event.task.get());
    if (found == open_.end()) return;
    OpenRow& open = found->second;
    open.startedAt = event.at;
    open.row->outcome = Outcome::Running;
    atWork_.push_back(&open);
    countRunning(1, event.at);
    tell([&open](RunListener& listener) { listener.rowStarted(*open.row); });
}

void RunRecord::end(const Event& event)
{
    const auto found = open_.find(event.task.get());
    if (found == open_.end()) return;
    OpenRow& open = found->second;
    RunRow& row = *open.row;
    if (row.outcome == Outcome::Running) {
        row.milliseconds = event.at - open.startedAt;
        std::erase(atWork_, &open);
        countRunning(-1, event.at);
    }
    row.outcome = event.outcome;
    row.failsByReport = event.report && verdictOf(*event.report, event.notes).failed();
    ++counterOf(*runs_.back(), row.outcome);
    weights_.end(row.bytes, partOf(row.outcome));
    tell([&row](RunListener& listener) { listener.rowEnded(row); });
    row.task.reset();
}

void RunRecord::report(const Event& event)
{
    const auto found = open_.find(event.task.get());
    if (found == open_.end()) return;
    RunRow& row = *found->second.row;
    open_.erase(found);
    if (event.report) {
        row.report = event.report;
        row.notes = event.notes;
        row.verdict = verdictOf(*event.report, event.notes);
        tell([&row](RunListener& listener) { listener.rowReported(row); });
    }
    tell([&row](RunListener& listener) { listener.rowClosed(row); });
}

void RunRecord::endRunSoon()
{
    if (!running_ || !open_.empty()) return;
    // Behind what the last task handed over, which may queue another task of the same run.
    postToMain([self = self_] {
        if (*self) (*self)->endRun();
    });
}

void RunRecord::endRun()
{
    {
        const std::lock_guard guard(mutex_);
        if (!events_.empty()) return;
    }
    if (!running_ || !open_.empty()) return;
    running_ = false;
    Run& run = *runs_.back();
    run.milliseconds = lastAt_ - begunAt_;
    tell([&run](RunListener& listener) { listener.runEnded(run); });
}

// Progress --------------------------------------------------------------------------------------------------------

void RunRecord::countRunning(int by, qint64 at)
{
    qsizetype& running = runs_.back()->running;
    if (running == 0) workingSince_ = at;
    running += by;
    if (running == 0) workedBefore_ += at - workingSince_;
}

qint64 RunRecord::worked() const
{
    return workedBefore_ + (runs_.back()->running > 0 ? clock_() - workingSince_ : 0);
}

double RunRecord::doneOf(const ZOLTTask& task)
{
    const auto bar = task.progressIndicator();
    const double span = bar->maxValue() - bar->minValue();
    const double reading = span > 0 ? (bar->reading().value_or(bar->minValue()) - bar->minValue()) / span : 0.0;
    const int stages = std::max(task.stageCount(), 1);
    const int stage = std::clamp(task.stage(), 1, stages);
    return (stage - 1 + std::clamp(reading, 0.0, 1.0)) / stages;
}

double RunRecord::runningWork()
{
    double work = 0.0;
    for (OpenRow* const open : atWork_) {
        open->done = std::max(open->done, doneOf(*open->row->task));
        work += open->done * weights_.weight(open->row->bytes);
    }
    return work;
}

double RunRecord::progress()
{
    if (!running_) return 1.0;
    measure();
    return weights_.fraction(runningWork());
}

std::optional<qint64> RunRecord::remaining()
{
    if (!running_) return std::nullopt;
    measure();
    const auto left = weights_.remaining(runningWork(), double(worked()));
    return left ? std::optional(qint64(*left)) : std::nullopt;
}

qint64 RunRecord::elapsed() const
{
    if (running_) return clock_() - begunAt_;
    return current() ? current()->milliseconds : 0;
}

QString RunRecord::progressInWords()
{
    if (!running_) return {};
    const Run& run = *current();
    const QString words =
        u"%1 of %2, %3 %"_s.arg(grouped(run.ended()), grouped(run.count())).arg(int(progress() * 100.0));
    const auto left = remaining();
    return left ? words + u", %1 left"_s.arg(clockText(*left)) : words;
}

// Sizes of the sources --------------------------------------------------------------------------------------------

void RunRecord::measure()
{
    if (!measured_.empty() || unmeasured_.empty()) return;
    measured_.swap(unmeasured_);
    QStringList paths;
    for (const RunRow* const row : measured_)
        paths.append(row->source);
    try {
        // A file may lie on a disk that takes its time.
        detachThread([self = self_, run = runs_.back().get(), sizeOf = sizes_, paths] {
            std::vector<qint64> sizes;
            for (const QString& path : paths)
                sizes.push_back(sizeOf(path));
            postToMain([self, run, sizes] {
                if (*self) (*self)->learn(*run, sizes);
            });
        });
    } catch (const PlatformException&) {
        measured_.swap(unmeasured_); // no thread to be had now: another call tries again
    }
}

void RunRecord::learn(const Run& run, const std::vector<qint64>& sizes)
{
    const bool counts = running_ && current() == &run;
    const auto rows = std::exchange(measured_, {});
    for (std::size_t index = 0; index < rows.size(); ++index) {
        if (sizes[index] == RunProgress::unknown) continue; // gone by now: it weighs as the others do
        rows[index]->bytes = sizes[index];
        if (counts) weights_.learn(partOf(rows[index]->outcome), sizes[index]);
    }
}

} // namespace zolt
