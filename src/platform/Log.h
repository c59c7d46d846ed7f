// Logging categories, one per folder. Free text with no levels beyond Qt's own.
#pragma once

#include <QLoggingCategory>

namespace zolt {

Q_DECLARE_LOGGING_CATEGORY(platformLog)

} // namespace zolt
