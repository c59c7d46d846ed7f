// What an outlook looks for: one function a kind of problem.
#pragma once

#include "shell/Outlook.h"

namespace zolt {

/// What a check works on.
struct OutlookSubject
{
    const WorkPlan& plan;
    const OutlookDisk& disk;
    const std::atomic<bool>& stop;
};

using OutlookProblems = std::vector<OutlookProblem>;
using OutlookCheck = OutlookProblems (*)(const OutlookSubject& subject);

/// All of them, the gravest first.
const std::vector<OutlookCheck>& outlookChecks();

/// Whether several sources would be written to one output.
OutlookProblems checkCollisions(const OutlookSubject& subject);

/// Whether all that is written finds room, disk by disk.
OutlookProblems checkRoom(const OutlookSubject& subject);

/// Whether the outputs' folders are known: beside the sources or in a folder that is set.
bool knowsPlaces(const WorkPlan& plan);

} // namespace zolt
