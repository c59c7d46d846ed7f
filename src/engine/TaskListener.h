// Told of tasks as they enter the queue and as they end; for whoever keeps a record.
#pragma once

#include "platform/text/Text.h"

#include <memory>

namespace zolt {

class ZOLTTask;

class TaskListener
{
public:
    virtual ~TaskListener() = default;
    /// The task is in the queue and has not been started. Main thread.
    virtual void taskAdded(const std::shared_ptr<ZOLTTask>& task) = 0;
    /// The task is started with the next step. Any thread, with the queue's lock held, as in what follows.
    virtual void taskStarted(const std::shared_ptr<ZOLTTask>&) {}
    /// The task has its outcome; called once for each, before the queue starts others. Any thread, with the queue's
    /// lock held: must return at once and not call the queue.
    virtual void taskEnded(const std::shared_ptr<ZOLTTask>& task) = 0;
    /// The report of the task is over; called once for each, some time after taskEnded. Any thread, without the lock.
    /// @param text  of the output window that it opened; absent where it opened none
    virtual void taskReported(const std::shared_ptr<ZOLTTask>&, const OptionalText& /*text*/) {}
};

} // namespace zolt
