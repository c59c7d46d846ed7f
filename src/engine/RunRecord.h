// What runs are, for every front end alike: their rows, how each ended, how far the one at work is, how long it takes.
#pragma once

#include "engine/Run.h"
#include "engine/TaskListener.h"

#include <functional>
#include <mutex>
#include <unordered_map>
#include <vector>

namespace zolt {

class ZOLTTaskQueue;

/// Told of runs. Main thread, from the event loop, in the order in which things happened; an operation may ask the
/// record and the queue whatever it likes.
class RunListener
{
public:
    virtual ~RunListener() = default;
    /// The first task of a run has come; its row follows.
    virtual void runBegan(const Run&) {}
    virtual void rowAdded(const RunRow&) {}
    virtual void rowStarted(const RunRow&) {}
    /// The row has its outcome; for the last time it has its task.
    virtual void rowEnded(const RunRow&) {}
    /// The row's end opened an output window; its report and verdict are there.
    virtual void rowReported(const RunRow&) {}
    /// Nothing more comes of the row.
    virtual void rowClosed(const RunRow&) {}
    /// Nothing is open any more, and nothing that the run left behind queues more.
    virtual void runEnded(const Run&) {}
};

/// Listens to the queue. Main thread. What it costs grows with what happens, never with the number of rows.
class RunRecord : private TaskListener
{
public:
    using Clock = std::function<qint64()>;
    using Sizes = std::function<qint64(const QString& path)>;

    /// @param queue  outlives the record
    /// @param clock  milliseconds from some moment on; any thread. None for the system's
    /// @param sizes  bytes of a file, or RunProgress::unknown; any thread. None for a look at the disk
    explicit RunRecord(ZOLTTaskQueue& queue, Clock clock = {}, Sizes sizes = {});
    ~RunRecord() override;
    RunRecord(const RunRecord&) = delete;
    RunRecord& operator=(const RunRecord&) = delete;

    /// @param listener  outlives the record, or is taken away before it goes
    void addListener(RunListener* listener);
    void removeListener(RunListener* listener);

    /// True from a run's first task to its end.
    bool isRunning() const { return running_; }
    /// The run in progress, else the last one; none before the first.
    const Run* current() const { return runs_.empty() ? nullptr : runs_.back().get(); }
    /// Every run since the start.
    const std::vector<std::unique_ptr<Run>>& runs() const { return runs_; }

    /// How far the run in progress is, from 0 to 1; 1 for one that has ended. The first call has the sources looked at,
    /// on a thread of its own.
    double progress();
    /// How many milliseconds the run in progress will still take; absent where that is not known.
    std::optional<qint64> remaining();
    /// How long the run in progress has lasted, or the last one did; in milliseconds.
    qint64 elapsed() const;
    /// "3 of 12, 41 %, 2:10 left" of the run in progress; empty where there is none.
    QString progressInWords();

private:
    struct Event
    {
        enum class Kind { Added, Started, Ended, Reported };
        Kind kind = Kind::Added;
        std::shared_ptr<ZOLTTask> task = {};
        qint64 at = 0;
        Outcome outcome = Outcome::Waiting;
        OptionalText report = {}; // of an end: the task's own part
        ReportNotes notes = {};
    };
    /// What is to be known of a row until it has reported.
    struct OpenRow
    {
        RunRow* row;
        qint64 startedAt = 0;
        double done = 0.0; // how far it is; never falls
    };

    void taskAdded(const std::shared_ptr<ZOLTTask>& task) override;
    void taskStarted(const std::shared_ptr<ZOLTTask>& task) override;
    void taskEnded(const std::shared_ptr<ZOLTTask>& task) override;
    void taskReported(const std::shared_ptr<ZOLTTask>& task, const OptionalText& text) override;

    void note(Event event);
    void deliverSoon(); // mutex_ is held
    bool take(Event& event);
    void deliver();
    void handle(const Event& event);
    void add(const Event& event);
    void start(const Event& event);
    void end(const Event& event);
    void report(const Event& event);
    void beginRun(qint64 at);
    void endRunSoon();
    void endRun();
    void tell(const std::function<void(RunListener&)>& what);
    void countRunning(int by, qint64 at);
    qint64 worked() const;
    double runningWork();
    static double doneOf(const ZOLTTask& task);

    void measure();
    void learn(const Run& run, const std::vector<qint64>& sizes);

    ZOLTTaskQueue& queue_;
    const Clock clock_;
    const Sizes sizes_;
    std::vector<RunListener*> listeners_;
    std::vector<std::unique_ptr<Run>> runs_;
    bool running_ = false;

    std::unordered_map<const ZOLTTask*, OpenRow> open_;
    std::vector<OpenRow*> atWork_;
    RunProgress weights_;
    std::vector<RunRow*> unmeasured_; // of the run in progress
    std::vector<RunRow*> measured_;   // those whose files are looked at just now
    qint64 begunAt_ = 0;
    qint64 lastAt_ = 0;
    qint64 workedBefore_ = 0; // for how long rows ran, up to the last time that none did
    qint64 workingSince_ = 0;

    mutable std::mutex mutex_; // guards what follows, which any thread fills
    std::deque<Event> events_;
    bool posted_ = false;
    std::shared_ptr<RunRecord*> self_; // none any more behind the record's end; main thread
};

} // namespace zolt
