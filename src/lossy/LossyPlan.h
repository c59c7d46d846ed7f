// What the Lossy tab's command would do, told before it is pressed. Looks at no file.
#pragma once

#include "shell/WorkPlan.h"

namespace zolt::lossyPlan {

/// Fills in items, rows passed over, tools and words; the plan holds the tab's list and places.
/// @param mp3  otherwise AAC
void fill(WorkPlan& plan, bool mp3);

/// Where the source's output goes: for MP3 under the name that the tools give it.
QString outputPath(const QString& source, const QString& folder, bool mp3);

} // namespace zolt::lossyPlan
