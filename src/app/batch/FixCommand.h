// The sub-command "fix".
#pragma once

#include "app/batch/BatchCommands.h"

namespace zolt::batch {

BatchCommand fixCommand();

} // namespace zolt::batch
