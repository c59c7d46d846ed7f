// Told of tasks as they enter the queue and as they end; for front ends that show no panel.
#pragma once

#include <memory>

namespace zolt {

class ZOLTTask;

class TaskListener
{
public:
    virtual ~TaskListener() = default;
    /// The task is in the queue and has not been started. Main thread.
    virtual void taskAdded(const std::shared_ptr<ZOLTTask>& task) = 0;
    /// The task has its outcome; called once for each, before the queue starts others. Any thread, with the queue's
    /// lock held: must return at once and not call the queue.
    virtual void taskEnded(const std::shared_ptr<ZOLTTask>& task) = 0;
};

} // namespace zolt
