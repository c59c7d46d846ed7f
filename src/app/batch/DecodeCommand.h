// zolt-batch decode
#pragma once

#include "app/batch/BatchCommands.h"

namespace zolt::batch {

BatchCommand decodeCommand();

} // namespace zolt::batch
