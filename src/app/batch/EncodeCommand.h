// zolt-batch encode
#pragma once

#include "app/batch/BatchCommands.h"

namespace zolt::batch {

BatchCommand encodeCommand();

} // namespace zolt::batch
