// How deep the audio may be that goes to a target.
#pragma once

#include "shell/WorkPlan.h"

namespace zolt {

/// For a plan's `inspect`: a caution for each source whose depth its way does not take. Only what the audio service
/// opens is looked at (WAV, AIFF, Apple Lossless); a tool answers for the rest.
/// @param target  a constant of the formats
std::vector<WorkCaution> unfitDepths(const QString& target, const WorkPlan& plan, const std::atomic<bool>& stop);

} // namespace zolt
