// A task that runs nothing: its cost is the queue's own.
#pragma once

#include "engine/ZOLTTask.h"

namespace zolt::bench {

class IdleTask : public ZOLTTask
{
public:
    static std::shared_ptr<IdleTask> make(ZOLTTaskQueue* queue)
    {
        std::shared_ptr<IdleTask> task(new IdleTask);
        task->setUpWithQueue(queue);
        task->showTitle(QStringLiteral("d1t01 Intro.flac"));
        return task;
    }
    void end()
    {
        stopTask(nullptr);
        setResults(nullptr); // as every task without a report
        reportCompleted();
    }
};

} // namespace zolt::bench
