// The sub-commands "checksum test", "checksum create" and "checksum verify".
#pragma once

#include "app/batch/BatchCommands.h"

namespace zolt::batch {

BatchCommand checksumTestCommand();
BatchCommand checksumCreateCommand();
BatchCommand checksumVerifyCommand();

} // namespace zolt::batch
