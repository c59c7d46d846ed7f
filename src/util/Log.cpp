#include "util/Log.h"

namespace zolt {

Q_LOGGING_CATEGORY(utilLog, "zolt.util")

} // namespace zolt
