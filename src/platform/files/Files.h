// Operations on files and directories. No state; any thread. Nothing here throws.
#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>

namespace zolt {

/// Writes the text as UTF-8 (names in it by their own bytes) to a temporary file beside `path` and renames it into
/// place, so that a reader sees the old text or the new one whole. @return false if that could not be done; what was
/// there before then stands
bool writeTextAtomically(const QString& path, const QString& text);

/// Moves a file to the user's trash, from where the desktop can restore it; one whose name is not UTF-8 goes there
/// under its readable name. @return false if it stays where it is
bool moveToTrash(const QString& path);

/// Removes a file, a link (never what it points to) or an empty directory. @return false if nothing was removed
bool removeItem(const QString& path);

/// Removes a file or a directory with all that is in it. @return false if something of it is left
bool removeTree(const QString& path);

/// Renames a file where nothing stands at the new path. @return false if the old name stands
bool moveItem(const QString& path, const QString& newPath);

/// The names in a directory in the order that the file system gives them, hidden ones included, "." and ".." not.
/// A directory that cannot be read gives an empty list.
QStringList directoryListing(const QString& path);

/// The path from the root, without what leads nowhere; one with ".." stays as given, since behind a link that leads
/// where the link does.
QString absolutePath(const QString& path);

/// True if the path is a directory or a link to one.
bool isDirectory(const QString& path);

/// Makes the directory and those above it that are missing. @return true if it is there then
bool makeDirectories(const QString& path);

/// True if the path is a regular file or a link to one.
bool isRegularFile(const QString& path);

/// True if there is something behind the path, links followed.
bool exists(const QString& path);

/// Bytes of the file; -1 if there is none.
std::int64_t fileSize(const QString& path);

/// The path without links; empty if there is nothing behind it.
QString realPath(const QString& path);

/// Renames a file; what stands at the new path is replaced. @return false if the old name stands
bool renameItem(const QString& path, const QString& newPath);

} // namespace zolt
