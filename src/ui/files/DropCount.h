// How many files a drag would bring.
#pragma once

#include <QSet>
#include <QString>
#include <QStringList>

#include <atomic>

namespace zolt {

struct DropCount
{
    qsizetype files = 0;
    bool complete = true; ///< false where counting ended before the last folder's end
};

/// Counts the files at and below the paths that a list of these extensions would take. Any thread.
/// @param extensions  upper case; empty for a list that takes every file
/// @param stop        set by another thread to end early
DropCount countDrop(const QStringList& paths, const QSet<QString>& extensions, const std::atomic<bool>& stop);

/// "Drop to add 12 files".
QString dropText(const DropCount& count);

} // namespace zolt
