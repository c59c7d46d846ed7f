// What version of itself a tool tells.
#pragma once

#include <QString>

namespace zolt {

/// Runs the tool once to ask for its version, and waits for its end, a few seconds at most. Empty for one that names
/// none. Any thread but the main one, which would stand still meanwhile.
/// @param path  of the tool
QString toolVersion(const QString& path);

} // namespace zolt
