#include "platform/Log.h"

namespace zolt {

Q_LOGGING_CATEGORY(platformLog, "zolt.platform")

} // namespace zolt
