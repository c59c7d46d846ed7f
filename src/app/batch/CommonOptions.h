// Options that several sub-commands take, and what they mean for a tab.
#pragma once

#include "app/batch/BatchOptions.h"

namespace zolt {

class BaseTab;

namespace batch {

/// --out DIR
OptionSyntax outOption();
/// --delete-originals
OptionSyntax deleteOption();

/// Has the tab write into the folder of --out, if it is given. @return whether outputs stand beside their sources
bool setOutputFolder(BaseTab& tab, const BatchOptions& options);

} // namespace batch
} // namespace zolt
