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

/// Presses the task's stop button, from the event loop: stopping waits for the tool's end. A task that shows none, or
/// is being stopped, is left alone: each press would end it once more. Main thread.
void stop(const Task& task);

/// Takes waiting tasks out, from the last to the first, and then stops running ones. Main thread.
void remove(ZOLTTaskQueue& queue, const std::vector<Task>& tasks);

/// Ends everything without starting anything more; nothing where all of it is being ended. Main thread.
void cancelAll(ZOLTTaskQueue& queue);

/// Has so many tasks run side by side from the next start on, and saves it. Main thread.
void setPace(int tasks);

/// Brings the panel up because a person asks for it: in front, with the keyboard. From the event loop. Main thread.
void showPanel(const ZOLTTaskQueue& queue);

/// Brings the report of a failed row up again: the window that shows it, or one more. Main thread.
void showReport(ZOLTTaskQueue& queue, const ZOLTTask& task);

} // namespace zolt::queueCommands
