// The logging category of this folder.
#pragma once

#include <QLoggingCategory>

namespace zolt {

Q_DECLARE_LOGGING_CATEGORY(regexLog)

} // namespace zolt
