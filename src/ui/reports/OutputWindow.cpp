#include "ui/reports/OutputWindow.h"

#include "platform/errors/Exceptions.h"
#include "ui/TextSides.h"
#include "ui/WindowPlaces.h"
#include "ui/binding/WindowBinding.h"
#include "ui_OutputWindow.h"

#include <QScreen>
#include <QShortcut>

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

constexpr int firstPlace = 60; // of a window whose distance is zero, from the screen's edge, where there is room

/// How far from the screen's edge a window of that distance stands; a long cascade begins again before it leaves the
/// screen. @param spare  what the window leaves of the screen
int placeInRoom(int distance, int spare)
{
    const int first = std::clamp(spare / 2, 0, firstPlace);
    return first + distance % std::max(spare - first, 1);
}

QPoint placeOnScreen(const QScreen& screen, QPointF distance, QSize size)
{
    const QRect all = screen.availableGeometry();
    const QPoint step = distance.toPoint();
    return all.topLeft() + QPoint(placeInRoom(step.x(), all.width() - size.width()),
                                  placeInRoom(step.y(), all.height() - size.height()));
}

} // namespace

OutputWindow::OutputWindow(OutputWindowController& controller)
    : form_(std::make_unique<Ui::OutputWindow>()), model_(controller.window()), text_(controller.textField()),
      facts_(controller.facts())
{
    setAttribute(Qt::WA_DeleteOnClose);
    form_->setupUi(this);
    keepTextsOnTheirSide(*this);
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
    if (onScreen) move(placeOnScreen(*onScreen, model_->frameTopLeftPoint(), sizeOnScreen(*this)));
    form_->pane->setFocus();
}

void OutputWindow::escape()
{
    if (!form_->pane->closeFind()) close();
}

} // namespace zolt
