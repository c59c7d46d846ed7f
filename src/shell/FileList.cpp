#include "shell/FileList.h"

#include "platform/text/Text.h"

#include <QHash>

namespace zolt {

QStringList FileList::copy() const
{
    const std::lock_guard guard(mutex_);
    return paths_;
}

qsizetype FileList::count() const
{
    const std::lock_guard guard(mutex_);
    return paths_.size();
}

QString FileList::at(qsizetype index) const
{
    const std::lock_guard guard(mutex_);
    return pieceAt(paths_, index);
}

void FileList::addSorted(const QStringList& paths)
{
    const std::lock_guard guard(mutex_);
    if (paths.size() == 1) { // adding file by file stays cheap on a long list
        paths_.insert(std::upper_bound(paths_.begin(), paths_.end(), paths.first()), paths.first());
        return;
    }
    const qsizetype sortedCount = paths_.size();
    paths_ += paths;
    std::sort(paths_.begin() + sortedCount, paths_.end());
    std::inplace_merge(paths_.begin(), paths_.begin() + sortedCount, paths_.end());
}

void FileList::removeAt(const QList<qsizetype>& indexes)
{
    const std::lock_guard guard(mutex_);
    QStringList kept;
    kept.reserve(paths_.size());
    QList<qsizetype> sorted = indexes;
    std::sort(sorted.begin(), sorted.end());
    for (qsizetype index = 0; index < paths_.size(); ++index) {
        if (!std::binary_search(sorted.begin(), sorted.end(), index)) kept.append(paths_[index]);
    }
    paths_ = kept;
}

void FileList::remove(const QStringList& paths)
{
    QHash<QString, qsizetype> count;
    for (const QString& path : paths)
        ++count[path];
    const std::lock_guard guard(mutex_);
    paths_.removeIf([&count](const QString& path) {
        const auto found = count.find(path);
        return found != count.end() && (*found)-- > 0;
    });
}

void FileList::clear()
{
    const std::lock_guard guard(mutex_);
    paths_.clear();
}

} // namespace zolt
