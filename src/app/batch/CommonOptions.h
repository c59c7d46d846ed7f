// Options that several sub-commands take, and what they mean for a tab.
#pragma once

#include "app/batch/BatchOptions.h"

namespace zolt {

class BaseTab;

namespace batch {

/// --out DIR
OptionSyntax outOption();
/// --out DIR, of a command that cannot do without
OptionSyntax requiredOutOption();
/// The text of a file that an option names. @throws UsageError where it cannot be read
QString textOfOption(const QString& path);
/// --format FORMAT, of what shntool writes
OptionSyntax shntoolFormatOption();
/// --delete-originals
OptionSyntax deleteOption();

/// Has the tab write into the folder of --out, if it is given. @return whether outputs stand beside their sources
bool setOutputFolder(BaseTab& tab, const BatchOptions& options);
/// As setOutputFolder. @throws UsageError if --out is not given
void requireOutputFolder(BaseTab& tab, const BatchOptions& options);

} // namespace batch
} // namespace zolt
