// What the tests of the engine share: a queue with a limit, tasks that end when told.
#pragma once

#include "engine/ZOLTTask.h"
#include "engine/ZOLTTaskQueue.h"
#include "support/RecordingDesktop.h"

#include <gtest/gtest.h>

#include <optional>

namespace zolt::test {

/// A task whose work is whatever the test does.
class TestTask : public ZOLTTask
{
public:
    static std::shared_ptr<TestTask> make(ZOLTTaskQueue* queue, const QString& name = QStringLiteral("task"))
    {
        std::shared_ptr<TestTask> task(new TestTask);
        task->setUpWithQueue(queue);
        task->showTitle(name);
        return task;
    }
    void startTask() override
    {
        ++starts;
        ZOLTTask::startTask();
    }
    /// A cancel is the end: nothing runs that would have to be waited for.
    void cancelTask(Sender sender) override
    {
        ++cancels;
        canceller = sender;
        ZOLTTask::cancelTask(sender);
        reportCompleted();
    }
    /// The end of the work, reported.
    void finish(bool failed = false)
    {
        if (failed) setError(true);
        stopTask(nullptr);
        reportCompleted();
    }
    void reportAgain() { reportCompleted(); }
    int starts = 0;
    int cancels = 0;
    std::optional<Sender> canceller; ///< of the last cancel
};

class EngineTest : public testing::Test
{
protected:
    EngineTest() { setLimit(2); }
    void setLimit(int limit) { queue_.maxThreadsChanged({QString(), nullptr, limit}); }
    std::vector<std::shared_ptr<TestTask>> addTasks(int count)
    {
        std::vector<std::shared_ptr<TestTask>> tasks;
        for (int i = 0; i < count; ++i) {
            tasks.push_back(TestTask::make(&queue_, QStringLiteral("task %1").arg(i)));
            queue_.addTask(tasks.back());
        }
        return tasks;
    }

    RecordingDesktop desktop_;
    ZOLTTaskQueue queue_;
};

} // namespace zolt::test
