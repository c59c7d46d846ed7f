// What the Checksum tab's commands would do, told before they are pressed. Looks at no file.
#pragma once

#include "shell/WorkPlan.h"

namespace zolt::checksumPlan {

// Each fills in items, rows passed over, tools and words; the plan holds the tab's list.

void testing(WorkPlan& plan);
void verifying(WorkPlan& plan);
/// @param kind    Constants::MD5, ST5 or FFP
/// @param beside  the new list stands beside the first of its files; otherwise its place is asked for
void creating(WorkPlan& plan, const QString& kind, bool beside);

/// What a kind of list is good for, in one sentence.
QString goodFor(const QString& kind);

} // namespace zolt::checksumPlan
