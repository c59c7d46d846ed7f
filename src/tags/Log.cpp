#include "tags/Log.h"

namespace zolt {

Q_LOGGING_CATEGORY(tagsLog, "zolt.tags")

} // namespace zolt
