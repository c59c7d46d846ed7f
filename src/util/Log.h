// The logging category of disc and utility functions.
#pragma once

#include <QLoggingCategory>

namespace zolt {

Q_DECLARE_LOGGING_CATEGORY(utilLog)

} // namespace zolt
