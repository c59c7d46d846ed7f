// What shntool's commands are known to decline, read in the files and folders themselves. Any thread.
#pragma once

#include "shell/WorkPlan.h"

namespace zolt::shntoolInspection {

using Cautions = std::vector<WorkCaution>;
using Stop = std::atomic<bool>;

/// What is no CD audio is declined.
Cautions wantsCdAudio(const WorkPlan& plan, const Stop& stop);
/// As wantsCdAudio; what ends on a sector boundary is declined as well.
Cautions wantsRaggedEnd(const WorkPlan& plan, const Stop& stop);
/// As wantsCdAudio; a set whose files all end on a sector boundary is declined as well.
Cautions wantsBrokenBoundary(const WorkPlan& plan, const Stop& stop);
/// What has a plain header and nothing behind its audio is declined.
Cautions wantsSomethingToStrip(const WorkPlan& plan, const Stop& stop);
/// Places of cue sheets mean other audio, and a folder with pieces of an earlier run is no place for new ones.
Cautions wantsPlaceForPieces(const WorkPlan& plan, const Stop& stop);

} // namespace zolt::shntoolInspection
