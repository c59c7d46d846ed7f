// The shell's logging category.
#pragma once

#include <QLoggingCategory>

namespace zolt {

Q_DECLARE_LOGGING_CATEGORY(shellLog)

} // namespace zolt
