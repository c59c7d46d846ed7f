#include "WindowCost.h"

#include "Clock.h"
#include "Heartbeat.h"
#include "IdleTask.h"
#include "app/Program.h"
#include "app/zolt/WindowProgram.h"
#include "decode/DecodeTab.h"
#include "engine/ZOLTTaskQueue.h"
#include "shell/ZOLTController.h"
#include "ui/MainWindow.h"
#include "ui/queue/QueueCommands.h"
#include "ui/queue/StatusQueueView.h"
#include "ui/queue/StatusQueueWindow.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>

#include <cstdio>

namespace zolt::bench {

namespace {

constexpr int slice = 200; // rows that end in one go of the event loop, as many more than any tool manages

/// Counts how often a widget is drawn.
class Drawings : public QObject
{
public:
    explicit Drawings(QWidget& widget) { widget.installEventFilter(this); }
    int count = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        count += event->type() == QEvent::Paint;
        return false;
    }
};

/// One stage of a run. Milliseconds.
struct Stage
{
    double all = 0.0;      ///< until nothing is left to do
    double longest = 0.0;  ///< without an answer
    double drawings = 0.0; ///< of the queue's rows, a second
};

struct Cost
{
    Stage pressing, running, cancelling, deleting;
};

class Bench
{
public:
    Bench()
        : view_(*program_.interfaces().window<StatusQueueWindow>()->findChild<StatusQueueView*>()),
          rows_(*view_.viewport())
    {
        program_.mainWindow().present();
        settleFor(300);
    }
    Cost costOf(int rows)
    {
        Cost cost;
        cost.pressing = press(rows);
        cost.cancelling = stageOf([this] { queueCommands::cancelAll(queue()); });
        press(rows);
        cost.deleting = stageOf([this] { deleteAll(); });
        queue().setHeld(false);
        cost.running = run(rows);
        return cost;
    }

private:
    ZOLTTaskQueue& queue() { return *program_.program().controller().taskQueue(); }
    static void settleFor(int milliseconds)
    {
        QElapsedTimer clock;
        for (clock.start(); clock.elapsed() < milliseconds;)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
    }
    Stage stageOf(const std::function<void()>& work)
    {
        beat_.takeLongest();
        const int before = rows_.count;
        Stage stage;
        stage.all = millisecondsOf(work);
        settleFor(200); // what follows of it is drawn
        stage.longest = beat_.takeLongest();
        stage.drawings = (rows_.count - before) * 1000.0 / (stage.all + 200);
        return stage;
    }
    /// The command of a tab, on as many files. The queue is held then: no tool is started.
    Stage press(int rows)
    {
        QStringList files;
        for (int row = 0; row < rows; ++row)
            files += QStringLiteral("/tmp/no such folder/track %1.flac").arg(row, 6, 10, QChar(u'0'));
        auto& tab = program_.program().tab<DecodeTab>();
        tab.addFiles(files);
        settleFor(1000); // list and outlook
        queue().setHeld(true);
        return stageOf([&] { tab.executeCommandWithout({}); });
    }
    /// Every row selected and taken out by its key.
    void deleteAll()
    {
        view_.selectAll();
        QKeyEvent key(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier);
        QCoreApplication::sendEvent(&view_, &key);
    }
    /// From the first row to the sweep behind the last.
    Stage run(int rows)
    {
        std::vector<std::shared_ptr<IdleTask>> tasks;
        for (int row = 0; row < rows; ++row)
            tasks.push_back(IdleTask::make(&queue()));
        queue().setHeld(true);
        for (const auto& task : tasks)
            queue().addTask(task);
        settleFor(300);
        return stageOf([&] {
            queue().setHeld(false);
            for (std::size_t row = 0; row < tasks.size(); ++row) {
                tasks[row]->end();
                if (row % slice == 0) settleFor(1);
            }
        });
    }

    WindowProgram program_;
    StatusQueueView& view_;
    Heartbeat beat_;
    Drawings rows_;
};

void print(const char* what, const Stage& few, const Stage& many)
{
    std::printf("  %-12s %8.2f %8.2f %7.2f %16.1f ms %14.1f\n", what, few.all, many.all / 10.0,
                many.all / 10.0 / few.all, many.longest, many.drawings);
}

} // namespace

void printWindowCost()
{
    Bench bench;
    const Cost few = bench.costOf(1000), many = bench.costOf(10000);
    std::printf("windows up       ms a thousand rows, of 1,000 and 10,000; ratio\n");
    std::printf("                                            longest block    drawings a second (of 10,000)\n");
    std::printf("  aim                                1.1            50.0 ms           20.0\n");
    print("pressing", few.pressing, many.pressing);
    print("running", few.running, many.running);
    print("cancelling", few.cancelling, many.cancelling);
    print("deleting", few.deleting, many.deleting);
}

} // namespace zolt::bench
