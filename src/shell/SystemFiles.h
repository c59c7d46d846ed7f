// Files that a file manager leaves in folders and that no walk picks up.
#pragma once

#include <QString>

namespace zolt {

/// True if the path's last component is ".DS_Store" or ".TOC.plist".
inline bool isSystemFile(const QString& path)
{
    return path.endsWith(QLatin1String("/.DS_Store")) || path.endsWith(QLatin1String("/.TOC.plist")) ||
           path == QLatin1String(".DS_Store") || path == QLatin1String(".TOC.plist");
}

} // namespace zolt
