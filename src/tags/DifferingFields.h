// In which fields files do not agree.
#pragma once

#include <QSet>
#include <QStringList>

#include <atomic>

namespace zolt {

/// The outlets (see TagField) of the fields that are not the same in all the files. Files that cannot be read are
/// passed over. Reads every file, so it belongs on a thread of its own; any thread.
/// @param stop  set by another thread to end early; the result is then incomplete
QSet<QString> differingFields(const QStringList& files, const std::atomic<bool>& stop);

} // namespace zolt
