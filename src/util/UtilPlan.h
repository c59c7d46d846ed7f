// What the commands of the Util tab would do.
#pragma once

#include "shell/WorkPlan.h"

namespace zolt::utilPlan {

// Each fills in the plan of its command over the files that stand in it. @param destination  of the tab
/// @param oneFile  all tracks go into one
void extracting(WorkPlan& plan, const OptionalText& destination, bool oneFile);
void renaming(WorkPlan& plan);
void gaining(WorkPlan& plan, bool adds);
void deEmphasizing(WorkPlan& plan, const OptionalText& destination);
void authoring(WorkPlan& plan, const OptionalText& destination);

/// The source's name with "-deemph" before its extension, in the folder.
QString deEmphasizedPath(const QString& source, const QString& folder);

/// Those of the files that have one of the extensions (upper case), in their order.
QStringList withExtensions(const QStringList& files, const QStringList& extensions);

} // namespace zolt::utilPlan
