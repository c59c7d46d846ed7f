// zolt-batch util ...
#pragma once

#include "app/batch/BatchCommands.h"

namespace zolt::batch {

/// All of them.
std::vector<BatchCommand> utilCommands();

} // namespace zolt::batch
