#include "ui/files/FileListView.h"

#include "platform/errors/Exceptions.h"
#include "ui/files/DropCount.h"
#include "ui/files/FileRowDelegate.h"

#include <QDragEnterEvent>
#include <QHeaderView>
#include <QMimeData>
#include <QUrl>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

QStringList localPaths(const QMimeData& data)
{
    QStringList paths;
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile()) paths += url.toLocalFile();
    }
    // A file manager may end a folder's address with a slash.
    for (QString& path : paths) {
        while (path.size() > 1 && path.endsWith(u'/'))
            path.chop(1);
    }
    return paths;
}

bool bringsFiles(const QDropEvent& event)
{
    const auto urls = event.mimeData()->hasUrls() ? event.mimeData()->urls() : QList<QUrl>();
    return std::any_of(urls.begin(), urls.end(), [](const QUrl& url) { return url.isLocalFile(); });
}

} // namespace

FileListView::FileListView(QWidget* parent) : QTreeView(parent)
{
    setItemDelegate(new FileRowDelegate(this));
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true); // a hundred thousand rows are laid out without asking each for its height
    setAllColumnsShowFocus(true);
    setSelectionMode(ExtendedSelection);
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setTextElideMode(Qt::ElideMiddle);
    setAcceptDrops(true);
    setDragDropMode(DropOnly);
    setDropIndicatorShown(false);
    setTabKeyNavigation(false);
    header()->setSectionsMovable(false);
}

void FileListView::setAcceptedExtensions(const QStringList& extensions)
{
    extensions_ = extensions;
    viewport()->update();
}

QList<qsizetype> FileListView::selectedRowNumbers() const
{
    QList<qsizetype> rows;
    if (!selectionModel()) return rows;
    for (const QModelIndex& index : selectionModel()->selectedRows())
        rows += index.row();
    return rows;
}

void FileListView::removeSelected()
{
    const auto rows = selectedRowNumbers();
    if (!rows.isEmpty() && remove_) guarded("remove rows", [&] { remove_(rows); });
}

void FileListView::showDrag(const QString& text)
{
    dragText_ = text;
    viewport()->update();
}

void FileListView::dragEnterEvent(QDragEnterEvent* event)
{
    if (!bringsFiles(*event)) return;
    event->setDropAction(Qt::CopyAction);
    event->accept();
    showDrag(u"Drop to add the files"_s);
    const QSet<QString> taken(extensions_.begin(), extensions_.end());
    counting_.start([this, taken, paths = localPaths(*event->mimeData())](const std::atomic<bool>& stop) {
        const DropCount count = countDrop(paths, taken, stop);
        return [this, count] {
            if (!dragText_.isEmpty()) showDrag(dropText(count));
        };
    });
}

void FileListView::dragMoveEvent(QDragMoveEvent* event)
{
    if (dragText_.isEmpty()) return event->ignore();
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

void FileListView::dragLeaveEvent(QDragLeaveEvent*)
{
    counting_.cancel();
    showDrag(QString());
}

void FileListView::dropEvent(QDropEvent* event)
{
    counting_.cancel();
    showDrag(QString());
    const QStringList paths = localPaths(*event->mimeData());
    event->setDropAction(Qt::CopyAction);
    event->accept();
    if (paths.isEmpty() || !dropped_) return;
    // Later, from the event loop: an alert about what was dropped must not keep the file manager waiting.
    QMetaObject::invokeMethod(
        this, [this, paths] { guarded("drop", [&] { dropped_(paths); }); }, Qt::QueuedConnection);
}

void FileListView::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Delete) || event->key() == Qt::Key_Backspace) return removeSelected();
    QTreeView::keyPressEvent(event);
}

void FileListView::paintEvent(QPaintEvent* event)
{
    QTreeView::paintEvent(event);
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    if (!dragText_.isEmpty())
        paintDrag(painter);
    else if (!model() || model()->rowCount() == 0)
        paintHint(painter);
}

void FileListView::paintHint(QPainter& painter) const
{
    QColor colour = palette().color(QPalette::Text);
    colour.setAlphaF(0.75F);
    painter.setPen(colour);
    const QString formats = extensions_.isEmpty() ? u"any format"_s : extensions_.join(u", "_s);
    QFont large = font();
    large.setPointSizeF(font().pointSizeF() * 1.2);
    const int line = QFontMetrics(large).lineSpacing();
    const QRect area = viewport()->rect().adjusted(8, 0, -8, 0);
    const int middle = area.center().y();
    painter.setFont(large);
    painter.drawText(QRect(area.left(), middle - 2 * line, area.width(), 2 * line),
                     Qt::AlignHCenter | Qt::AlignBottom | Qt::TextWordWrap, u"Drop files or folders here"_s);
    painter.setFont(font());
    painter.drawText(QRect(area.left(), middle + line / 4, area.width(), 3 * line),
                     Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, formats);
}

void FileListView::paintDrag(QPainter& painter) const
{
    const QRectF frame = QRectF(viewport()->rect()).adjusted(1.5, 1.5, -1.5, -1.5);
    QColor veil = palette().color(QPalette::Base);
    veil.setAlphaF(0.85F);
    painter.setBrush(veil);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 3));
    painter.drawRoundedRect(frame, 4, 4);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(frame.adjusted(8, 8, -8, -8), int(Qt::AlignCenter) | int(Qt::TextWordWrap), dragText_);
}

} // namespace zolt
