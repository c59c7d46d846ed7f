#include "ui/Drags.h"

#include "platform/files/FileUris.h"
#include "support/EventLoop.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

namespace zolt::test {

namespace {

const QPoint place(4, 4);

std::unique_ptr<QMimeData> dragged(const QStringList& paths)
{
    auto data = std::make_unique<QMimeData>();
    QList<QUrl> urls;
    for (const QString& path : paths)
        urls += QUrl(uriOfPath(path));
    data->setUrls(urls);
    return data;
}

} // namespace

bool dragOver(QWidget& target, const QStringList& paths)
{
    const auto data = dragged(paths);
    QDragEnterEvent event(place, Qt::MoveAction | Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    event.ignore();
    QApplication::sendEvent(&target, &event);
    return event.isAccepted();
}

void dragAway(QWidget& target)
{
    QDragLeaveEvent event;
    QApplication::sendEvent(&target, &event);
}

Qt::DropAction dropOn(QWidget& target, const QStringList& paths)
{
    if (!dragOver(target, paths)) return Qt::IgnoreAction;
    const auto data = dragged(paths);
    QDropEvent event(place, Qt::MoveAction | Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    event.setDropAction(Qt::MoveAction);
    event.ignore();
    QApplication::sendEvent(&target, &event);
    QCoreApplication::processEvents();
    runPosted();
    return event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
}

} // namespace zolt::test
