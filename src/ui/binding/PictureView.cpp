#include "ui/binding/PictureView.h"

#include "platform/controls/ImageView.h"
#include "platform/desktop/Panels.h"
#include "platform/files/FileNames.h"
#include "platform/files/NamedFile.h"
#include "platform/images/Image.h"
#include "platform/text/Text.h"
#include "shell/ZOLTDragAndDropImageView.h"
#include "ui/DroppedPaths.h"
#include "ui/binding/Binders.h"
#include "ui/binding/OutletBinding.h"

#include <QBuffer>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QImage>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QStyleOptionFrame>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

bool removes(const QKeyEvent& event)
{
    return event.matches(QKeySequence::Delete) || event.key() == Qt::Key_Backspace;
}

std::shared_ptr<const Image> imageOf(const QImage& pixels)
{
    QBuffer png;
    png.open(QIODevice::WriteOnly);
    return pixels.save(&png, "PNG") ? Image::fromData(png.data()) : nullptr;
}

} // namespace

PictureView::PictureView(QWidget* parent) : QWidget(parent)
{
    setAcceptDrops(true);
    setFocusPolicy(Qt::StrongFocus);
}

/// The menus have these keys too, for the list: with the keyboard here they are the picture's.
bool PictureView::event(QEvent* event)
{
    if (event->type() != QEvent::ShortcutOverride) return QWidget::event(event);
    const auto& key = *static_cast<QKeyEvent*>(event);
    const bool isOurs = removes(key) || key.matches(QKeySequence::Paste);
    event->setAccepted(isOurs);
    return isOurs || QWidget::event(event);
}

void PictureView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    QStyleOptionFrame frame;
    frame.initFrom(this);
    frame.lineWidth = 1;
    frame.state |= QStyle::State_Sunken;
    style()->drawPrimitive(QStyle::PE_Frame, &frame, &painter, this);
    const auto image = model_ ? model_->image() : nullptr;
    const QRect inside = rect().adjusted(4, 4, -4, -4);
    if (hasFocus()) {
        painter.setPen(QPen(palette().highlight(), 2));
        painter.drawRect(rect().adjusted(1, 1, -1, -1));
    }
    painter.setPen(palette().color(QPalette::WindowText));
    if (!image) return painter.drawText(inside, int(Qt::AlignCenter) | int(Qt::TextWordWrap), u"Drop a picture here"_s);
    QRect place({}, image->drawn().size().scaled(inside.size(), Qt::KeepAspectRatio));
    place.moveCenter(inside.center());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(place, image->drawn());
}

void PictureView::take(const QString& file)
{
    NamedFile source(file);
    const auto image = source.open(QIODevice::ReadOnly) ? Image::fromData(source.readAll()) : nullptr;
    if (!image) {
        panels().runAlert(u"%1 is not a picture that can be shown"_s.arg(readableName(path::lastComponent(file))),
                          u"Choose a PNG or JPEG file. The picture stays as it is."_s, u"OK"_s);
        return;
    }
    model_->replaceImage(image);
}

void PictureView::choose()
{
    OpenPanelRequest request;
    request.title = u"Choose a picture"_s;
    request.fileTypes = QStringList{u"png"_s, u"jpg"_s, u"jpeg"_s, u"gif"_s, u"bmp"_s, u"webp"_s, u"tif"_s, u"tiff"_s};
    const auto chosen = panels().openPanel(request);
    if (chosen && !chosen->isEmpty()) take(chosen->first());
}

void PictureView::paste()
{
    const QMimeData* const pasted = QApplication::clipboard()->mimeData();
    const QStringList files = pasted ? droppedPaths(*pasted) : QStringList();
    if (files.size() == 1) return take(files.first());
    if (const auto image = imageOf(QApplication::clipboard()->image())) return model_->replaceImage(image);
    panels().runAlert(u"There is no picture to paste"_s, u"Copy a picture, or one picture file, first."_s, u"OK"_s);
}

void PictureView::clear()
{
    model_->replaceImage(nullptr);
}

void PictureView::keyPressEvent(QKeyEvent* event)
{
    const bool opens = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space;
    if (opens && event->modifiers() == Qt::NoModifier)
        guarded("choose picture", [this] { choose(); });
    else if (event->matches(QKeySequence::Paste))
        guarded("paste picture", [this] { paste(); });
    else if (removes(*event))
        guarded("remove picture", [this] { clear(); });
    else
        QWidget::keyPressEvent(event);
}

void PictureView::mouseDoubleClickEvent(QMouseEvent*)
{
    guarded("choose picture", [this] { choose(); });
}

void PictureView::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu menu(this);
    menu.addAction(u"&Choose Picture…"_s, this, [this] { guarded("choose picture", [this] { choose(); }); });
    menu.addAction(u"&Paste Picture"_s, this, [this] { guarded("paste picture", [this] { paste(); }); });
    menu.addAction(u"&Remove Picture"_s, this, [this] { guarded("remove picture", [this] { clear(); }); })
        ->setEnabled(model_ && model_->image());
    menu.exec(event->globalPos());
}

void PictureView::dragEnterEvent(QDragEnterEvent* event)
{
    const auto* const judge = dynamic_cast<const ZOLTDragAndDropImageView*>(model_.get());
    const auto paths = droppedPaths(*event->mimeData());
    if (!judge || judge->draggingEntered(paths) == ZOLTDragAndDropImageView::noOperation) return event->ignore();
    acceptAsCopy(*event);
}

void PictureView::dropEvent(QDropEvent* event)
{
    acceptAsCopy(*event);
    QMetaObject::invokeMethod(
        this, [this, file = droppedPaths(*event->mimeData()).value(0)] { guarded("drop", [&] { take(file); }); },
        Qt::QueuedConnection);
}

void bindWidget(QWidget& widget, const std::shared_ptr<ImageView>& model, const Changed& changed)
{
    auto& view = shownBy<PictureView>(widget);
    view.setModel(model);
    keepShown<ImageView>(
        view, model, [](PictureView& shown, const ImageView&) { shown.update(); }, changed);
}

} // namespace zolt
