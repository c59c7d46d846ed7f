#include "shell/Log.h"

namespace zolt {

Q_LOGGING_CATEGORY(shellLog, "zolt.shell")

} // namespace zolt
