// The log of this folder.
#pragma once

#include <QLoggingCategory>

namespace zolt {

Q_DECLARE_LOGGING_CATEGORY(encodeLog)

} // namespace zolt
