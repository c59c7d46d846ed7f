// What a person does with rows of the queue.
#pragma once

#include "engine/ZOLTTaskQueue.h"

#include <QString>

namespace zolt::queueCommands {

using Task = std::shared_ptr<ZOLTTask>;

/// It has not been started and has not ended.
bool waits(const ZOLTTask& task);
/// It was asked to stop, and its tool has still to end.
bool isStopping(const ZOLTTask& task);

/// Takes waiting tasks out, from the last to the first, and then presses the stop buttons of running ones, from the
/// event loop: stopping waits for the tool's end. Others are left alone. Main thread.
void remove(ZOLTTaskQueue& queue, const std::vector<Task>& tasks);

/// Ends everything without starting anything more. Main thread.
void cancelAll(ZOLTTaskQueue& queue);

/// Has so many tasks run side by side from the next start on, and saves it. Main thread.
void setPace(int tasks);

/// Brings the report of a failed row up again: the window that shows it, or one more. Main thread.
void showReport(ZOLTTaskQueue& queue, const ZOLTTask& task);

} // namespace zolt::queueCommands
