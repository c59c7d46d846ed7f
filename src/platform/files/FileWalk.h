// A walk through a directory and all that lies below it.
#pragma once

#include <QString>

#include <atomic>
#include <functional>

namespace zolt {

/// Calls `visit` with every path below `path` that is no directory, directories followed to any depth, entries in the
/// order the file system gives them. A path that is no directory, or does not exist, is visited itself. A directory
/// that the walk is inside of (same device and inode) is not entered again, so a link that loops is listed once. A
/// directory that cannot be read counts as empty. Any thread.
/// @param stop  set by another thread to end the walk early; none for a walk that goes to its end
void walkFiles(const QString& path, const std::function<void(const QString& file)>& visit,
               const std::atomic<bool>* stop = nullptr);

} // namespace zolt
