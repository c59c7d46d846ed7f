#include "ui/DroppedPaths.h"

#include "platform/files/FileUris.h"

#include <QDropEvent>
#include <QMimeData>

namespace zolt {

QStringList droppedPaths(const QMimeData& data)
{
    QStringList paths;
    if (!data.hasUrls()) return paths;
    for (const QUrl& url : data.urls()) {
        if (const OptionalText path = pathOfUri(url)) paths += *path;
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
