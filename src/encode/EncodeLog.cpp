#include "encode/EncodeLog.h"

namespace zolt {

Q_LOGGING_CATEGORY(encodeLog, "zolt.encode")

} // namespace zolt
