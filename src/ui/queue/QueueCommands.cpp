#include "ui/queue/QueueCommands.h"

#include "engine/OutputWindowController.h"
#include "engine/ZOLTTask.h"
#include "platform/desktop/UserDefaults.h"
#include "platform/threads/MainQueue.h"
#include "shell/Constants.h"
#include "ui/WindowPlaces.h"
#include "ui/binding/WindowBinding.h"

namespace zolt::queueCommands {

bool waits(const ZOLTTask& task)
{
    return task.isWaiting() && !task.cancelled();
}

bool isStopping(const ZOLTTask& task)
{
    return task.cancelled() && !task.isDone();
}

void stop(const Task& task)
{
    postToMain([task] {
        if (!task->cancelButton()->isHidden() && !isStopping(*task)) task->cancelButton()->performAction();
    });
}

void remove(ZOLTTaskQueue& queue, const std::vector<Task>& tasks)
{
    for (auto task = tasks.rbegin(); task != tasks.rend(); ++task) {
        if (waits(**task)) queue.withdrawTask(*task);
    }
    for (const Task& task : tasks) {
        if (!task->isDone()) stop(task);
    }
}

void cancelAll(ZOLTTaskQueue& queue)
{
    const auto open = queue.taskArray();
    if (std::all_of(open.begin(), open.end(), [](const Task& task) { return task->cancelled(); })) return;
    queue.endEverything([&queue] { queue.cancelAllTasks(nullptr); });
}

void setPace(int tasks)
{
    UserDefaults::standard().set(QStringLiteral("maxThreads"), tasks);
    NotificationCenter::standard().post({Constants::ZOLTMaxThreadsChangedNotification, nullptr, tasks});
}

void showPanel(const ZOLTTaskQueue& queue)
{
    queue.panel()->makeKeyAndOrderFront();
    postToMain([panel = queue.panel()] { // behind the order, which finds the panel its place
        if (QWidget* const shown = WindowBinding::widgetOf(*panel)) bringToFront(*shown);
    });
}

void showReport(ZOLTTaskQueue& queue, const ZOLTTask& task)
{
    const auto report = task.results();
    if (!report) return; // its end came while the menu was open
    const QString text = report->results();
    for (const auto& shown : queue.outputWindows()) {
        if (shown->window()->title() != task.title() || shown->textField()->string() != text) continue;
        if (!WindowBinding::widgetOf(*shown->window())) shown->loadWindow();
        return shown->showWindow();
    }
    queue.showOutputWindowTitle(text, task.title(), {task.source(), report->notes()});
}

} // namespace zolt::queueCommands
