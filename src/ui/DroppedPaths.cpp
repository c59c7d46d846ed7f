#include "ui/DroppedPaths.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

namespace zolt {

QStringList droppedPaths(const QMimeData& data)
{
    QStringList paths;
    if (!data.hasUrls()) return paths;
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile()) paths += url.toLocalFile();
    }
    for (QString& path : paths) {
        while (path.size() > 1 && path.endsWith(u'/'))
            path.chop(1);
    }
    return paths;
}

void acceptAsCopy(QDropEvent& event)
{
    event.setDropAction(Qt::CopyAction);
    event.accept();
}

} // namespace zolt
