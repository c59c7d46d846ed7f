#include "shntool/ShntoolLog.h"

namespace zolt {

Q_LOGGING_CATEGORY(shntoolLog, "zolt.shntool")

} // namespace zolt
