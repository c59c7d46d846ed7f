#include "ui/reports/OutputWindow.h"

#include "platform/errors/Exceptions.h"
#include "ui/WindowPlaces.h"
#include "ui/binding/WindowBinding.h"
#include "ui_OutputWindow.h"

#include <QScreen>
#include <QShortcut>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

const QPoint firstPlace(60, 60); // of a window whose distance is zero, from the screen's corner

/// Where a window of that distance goes; a long cascade begins again before it leaves the screen.
QPoint placeOnScreen(const QScreen& screen, QPointF distance, QSize size)
{
    const QRect room =
        screen.availableGeometry().adjusted(firstPlace.x(), firstPlace.y(), -size.width(), -size.height());
    const QPoint step = distance.toPoint();
    return room.topLeft() + QPoint(step.x() % std::max(room.width(), 1), step.y() % std::max(room.height(), 1));
}

} // namespace

OutputWindow::OutputWindow(OutputWindowController& controller)
    : form_(std::make_unique<Ui::OutputWindow>()), model_(controller.window()), text_(controller.textField()),
      facts_(controller.facts())
{
    setAttribute(Qt::WA_DeleteOnClose);
    form_->setupUi(this);
    fitToScreen(*this);
    form_->gatherBar->hide();
    connect(form_->gatherButton, &QPushButton::clicked, this, [this] { guarded("gather", [this] { gather_(); }); });
    addKeys();
    text_->setObserver(this);
    controlChanged(*text_);
    auto* const binding = new WindowBinding(*this, model_);
    binding->setComingUp([this] { place(); });
    binding->setMoved([this] { place(); }); // a report from a task's thread is told its place once it is up
}

OutputWindow::~OutputWindow()
{
    text_->setObserver(nullptr);
}

void OutputWindow::addKeys()
{
    const auto key = [this](const QKeySequence& keys, auto work) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, work);
    };
    key(QKeySequence(u"Ctrl+F"_s), [this] { form_->pane->openFind(); });
    key(QKeySequence(u"F3"_s), [this] { form_->pane->findNext(); });
    key(QKeySequence(u"Ctrl+S"_s), [this] { guarded("save report", [this] { form_->pane->saveAs(); }); });
    key(QKeySequence(u"Ctrl+W"_s), [this] { close(); });
    key(QKeySequence(u"Escape"_s), [this] { escape(); });
}

void OutputWindow::controlChanged(Control&)
{
    form_->pane->setFont(text_->font());
    form_->pane->setReport(model_->title(), text_->string(), facts_);
}

void OutputWindow::offerGathering(std::function<void()> gather)
{
    gather_ = std::move(gather);
    form_->gatherBar->show();
}

void OutputWindow::place()
{
    const QScreen* const onScreen = screen();
    if (onScreen) move(placeOnScreen(*onScreen, model_->frameTopLeftPoint(), frameSize()));
    form_->pane->setFocus();
}

void OutputWindow::escape()
{
    if (!form_->pane->closeFind()) close();
}

} // namespace zolt
