// The logging category of this folder.
#pragma once

#include <QLoggingCategory>

namespace zolt {

Q_DECLARE_LOGGING_CATEGORY(tagsLog)

} // namespace zolt
