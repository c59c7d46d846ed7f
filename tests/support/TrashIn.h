// Deleting means the trash, in tests.
#pragma once

#include "platform/desktop/UserDefaults.h"

#include <QDir>

namespace zolt::test {

/// As long as this lives, deleted files go into a trash below a folder of the test's own.
class TrashIn
{
public:
    explicit TrashIn(const QString& folder) : folder_(folder)
    {
        UserDefaults::standard().set(QStringLiteral("trashOrDelete"), 1);
        qputenv("XDG_DATA_HOME", folder.toLocal8Bit());
    }
    ~TrashIn() { qunsetenv("XDG_DATA_HOME"); }
    TrashIn(const TrashIn&) = delete;
    TrashIn& operator=(const TrashIn&) = delete;

    QStringList names() const { return QDir(folder_ + QStringLiteral("/Trash/files")).entryList(QDir::Files); }
    bool holds(const QString& name) const { return names().contains(name); }

private:
    const QString folder_;
};

} // namespace zolt::test
