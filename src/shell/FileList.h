// The files of a tab.
#pragma once

#include <QString>
#include <QStringList>

#include <mutex>

namespace zolt {

/// Changed in place and handed to tasks by reference: who must have a copy takes it, and when it takes it is part of
/// the behaviour. Any thread.
class FileList
{
public:
    FileList() = default;
    /// A list of these paths, in this order.
    explicit FileList(QStringList paths) : paths_(std::move(paths)) {}

    /// What the list holds now.
    QStringList copy() const;
    qsizetype count() const;
    bool isEmpty() const { return count() == 0; }
    /// @throws RangeException if there is no such entry
    QString at(qsizetype index) const;

    /// Appends the paths and sorts the whole list, literally and case-sensitively; the same path may stand twice.
    void addSorted(const QStringList& paths);
    void removeAt(const QList<qsizetype>& indexes);
    /// Takes out one entry for each of these paths, as far as they are there.
    void remove(const QStringList& paths);
    void clear();

private:
    mutable std::mutex mutex_;
    QStringList paths_;
};

} // namespace zolt
