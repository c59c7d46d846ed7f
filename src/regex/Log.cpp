#include "regex/Log.h"

namespace zolt {

Q_LOGGING_CATEGORY(regexLog, "zolt.regex")

} // namespace zolt
