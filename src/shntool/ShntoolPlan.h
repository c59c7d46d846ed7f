// What shntool's commands would do, told before they are pressed.
#pragma once

#include "shell/WorkPlan.h"

namespace zolt::shntoolPlan {

/// Fills in what the command makes of the plan's list.
/// @param command  a command of shntool as Constants names it
/// @param format   the extension of what is written
void plan(WorkPlan& plan, const QString& command, const QString& format, const OptionalText& destination);

/// What the command does and what it will ask for, in a sentence or two.
QString aboutCommand(const QString& command);

} // namespace zolt::shntoolPlan
