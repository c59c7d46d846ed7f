// What the Lossy tab's command would do, told before it is pressed. The estimate alone looks at files.
#pragma once

#include "lossy/LossyLevel.h"
#include "shell/WorkPlan.h"

namespace zolt::lossyPlan {

/// Fills in items, rows passed over, tools, words and the estimate; the plan holds the tab's list and places.
void fill(WorkPlan& plan, const LossyChoice& choice);

/// Where the source's output goes: for MP3 under the name that the tools give it.
QString outputPath(const QString& source, const QString& folder, bool mp3);

} // namespace zolt::lossyPlan
