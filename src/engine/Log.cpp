#include "engine/Log.h"

namespace zolt {

Q_LOGGING_CATEGORY(engineLog, "zolt.engine")

} // namespace zolt
