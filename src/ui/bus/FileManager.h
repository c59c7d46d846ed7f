// Showing files where they lie.
#pragma once

#include <QString>

namespace zolt {

/// Has the desktop's file manager open the file's folder with the file selected, or at least the folder. Main thread.
void showInFolder(const QString& path);

} // namespace zolt
