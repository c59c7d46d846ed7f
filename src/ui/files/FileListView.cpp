#include "ui/files/FileListView.h"

#include "platform/errors/Exceptions.h"
#include "ui/DroppedPaths.h"
#include "ui/SelectedRows.h"
#include "ui/files/DropCount.h"
#include "ui/files/FileRowDelegate.h"

#include <QDragEnterEvent>
#include <QHeaderView>

namespace zolt {

using namespace Qt::StringLiterals;

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
    setIconSize(QSize(fontMetrics().height(), fontMetrics().height()));
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
    return selectedRows(*this);
}

void FileListView::selectRowNumbers(const QList<qsizetype>& rows)
{
    if (rows.isEmpty()) return;
    selectionModel()->setCurrentIndex(model()->index(int(rows.first()), 0), QItemSelectionModel::NoUpdate);
    selectOnly(rows);
    scrollTo(currentIndex());
}

void FileListView::selectOnly(const QList<qsizetype>& rows)
{
    if (rows.isEmpty()) return clearSelection();
    QItemSelection selection;
    for (qsizetype first = 0, last = 0; first < rows.size(); first = ++last) {
        while (last + 1 < rows.size() && rows[last + 1] == rows[last] + 1)
            ++last; // one range for neighbours: long lists are selected at once
        selection.append(QItemSelectionRange(model()->index(int(rows[first]), 0),
                                             model()->index(int(rows[last]), model()->columnCount() - 1)));
    }
    {
        // Nobody is told of the step between. Many ranges that came for others would each be held against each.
        const QSignalBlocker quiet(selectionModel());
        selectionModel()->clearSelection();
    }
    selectionModel()->select(selection, QItemSelectionModel::Select);
    viewport()->update();
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
    const QStringList paths = droppedPaths(*event->mimeData());
    if (paths.isEmpty()) return;
    acceptAsCopy(*event);
    showDrag(u"Drop to add the files"_s);
    const QSet<QString> taken(extensions_.begin(), extensions_.end());
    counting_.start([this, taken, paths](const std::atomic<bool>& stop) {
        const DropCount count = countDrop(paths, taken, stop);
        return [this, count] {
            if (!dragText_.isEmpty()) showDrag(dropText(count));
        };
    });
}

void FileListView::dragMoveEvent(QDragMoveEvent* event)
{
    if (dragText_.isEmpty()) return event->ignore();
    acceptAsCopy(*event);
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
    const QStringList paths = droppedPaths(*event->mimeData());
    acceptAsCopy(*event);
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
