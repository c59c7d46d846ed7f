// What a list of files amounts to.
#pragma once

#include <QString>
#include <QStringList>

#include <atomic>
#include <cstdint>

namespace zolt {

struct ListFacts
{
    qsizetype files = 0;
    qsizetype folders = 0;
    std::int64_t bytes = 0;
    bool operator==(const ListFacts&) const = default;
};

/// Counts and measures the files; those that are not there measure nothing. Any thread.
/// @param stop  set by another thread to end early
ListFacts gatherListFacts(const QStringList& files, const std::atomic<bool>& stop);

/// "23 files, 1.2 GB, 3 folders"; one folder goes without saying. Empty for no files.
QString listFactsText(const ListFacts& facts);

/// True if the paths lie in more than one folder.
bool liesInSeveralFolders(const QStringList& files);

} // namespace zolt
