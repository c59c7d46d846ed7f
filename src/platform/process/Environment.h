// What a child process finds in its environment.
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

#include <memory>
#include <vector>

namespace zolt {

/// Names to values, as nameOfBytes() makes texts of bytes. Copies share their data until one is changed, so thousands
/// of waiting tasks hold one map.
using Environment = QMap<QString, QString>;

/// The program's own environment, with PATH set to its present value, ":" and the tools directory. Any thread.
Environment childEnvironment();

/// Sets "NSUnbufferedIO" to "YES", which asks a tool not to hold its output back. Any thread.
void setUnbufferedIO(Environment& environment);

/// "NAME=value" of each entry, byte for byte what this program was given. Made once for the map that most tools are
/// started with. Any thread.
std::shared_ptr<const std::vector<QByteArray>> environmentEntries(const Environment& environment);

/// The value of PATH becomes itself, ":" and the directory.
void appendDirectoryToPath(Environment& environment, const QString& directory);

} // namespace zolt
