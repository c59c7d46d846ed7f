// zolt-batch lossy
#pragma once

#include "app/batch/BatchCommands.h"

namespace zolt::batch {

BatchCommand lossyCommand();

} // namespace zolt::batch
