// The logging category of shntool's front end.
#pragma once

#include <QLoggingCategory>

namespace zolt {

Q_DECLARE_LOGGING_CATEGORY(shntoolLog)

} // namespace zolt
