// zolt-batch tags show, tags set, tags name
#pragma once

#include "app/batch/BatchCommands.h"

namespace zolt::batch {

std::vector<BatchCommand> tagsCommands();

} // namespace zolt::batch
