#include "util/BatchRename.h"

#include "platform/files/FileNames.h"
#include "platform/files/Files.h"
#include "util/Log.h"

#include <sys/stat.h>

namespace zolt {

namespace {

/// A link that leads nowhere counts too: nothing can be moved there.
bool isTaken(const QString& path)
{
    struct stat facts = {};
    return ::lstat(bytesOfName(path).constData(), &facts) == 0;
}

} // namespace

QStringList renamedPaths(const QStringList& files, const QString& prefix)
{
    QStringList paths;
    for (const QString& file : files) {
        const QString number = QStringLiteral("%1").arg(paths.size() + 1, 2, 10, QChar(u'0'));
        const QString extension = path::extension(file);
        const QString name = path::appendingComponent(path::deletingLastComponent(file), prefix + number);
        paths += extension.isEmpty() ? name : path::appendingExtension(name, extension);
    }
    return paths;
}

OptionalText firstTaken(const QStringList& paths)
{
    const auto taken = std::find_if(paths.begin(), paths.end(), isTaken);
    return taken == paths.end() ? std::nullopt : OptionalText(*taken);
}

qsizetype moveFiles(const QStringList& files, const QStringList& paths)
{
    qsizetype moved = 0;
    for (qsizetype index = 0; index < files.size(); ++index) {
        qCInfo(utilLog).noquote() << "moving" << files[index] << "to" << paths[index];
        if (moveItem(files[index], paths[index])) ++moved;
    }
    return moved;
}

} // namespace zolt
