// The sub-commands "shntool len" to "shntool strip".
#pragma once

#include "app/batch/BatchCommands.h"

namespace zolt::batch {

std::vector<BatchCommand> shntoolCommands();

} // namespace zolt::batch
