// The files that a person leaves out of the next run: they stay in the list and are not pressed.
#pragma once

#include <QSet>
#include <QStringList>

namespace zolt {

/// Known by their paths, since the list is sorted anew with each addition. Main thread.
class LeftOut
{
public:
    void add(const QStringList& files, const QList<qsizetype>& rows);
    void clear() { paths_.clear(); }
    /// Forgets what the list no longer holds.
    void keepOnly(const QStringList& files);

    bool isEmpty() const { return paths_.isEmpty(); }
    qsizetype count() const { return paths_.size(); }
    /// The rows of the list that are left out.
    QList<qsizetype> rowsIn(const QStringList& files) const;

private:
    QSet<QString> paths_;
};

} // namespace zolt
