// What a person has chosen of the windows themselves; the window's own state, kept at once. Main thread.
#pragma once

namespace zolt::viewChoices {

/// Each command brings the queue to the front, also where it is up already. On at first.
bool keepsQueueInFront();
void setKeepsQueueInFront(bool keeps);

/// Reports are gathered in one window. Off at first.
bool gathersReports();
void setGathersReports(bool gathers);

} // namespace zolt::viewChoices
