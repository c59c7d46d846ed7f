#include "ui/panels/StatusPanelWindow.h"

#include "engine/StatusPanelController.h"
#include "ui/TextSides.h"
#include "ui/binding/Bindings.h"
#include "ui/binding/WindowBinding.h"
#include "ui_StatusPanel.h"

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

constexpr int steps = 1000;

} // namespace

StatusPanelWindow::StatusPanelWindow(StatusPanelController& controller)
    : form_(std::make_unique<Ui::StatusPanel>()), bar_(controller.progressBar())
{
    form_->setupUi(this);
    Bindings(*this).bind(u"textField"_s, controller.textField());
    bar_->setObserver(this);
    controlChanged(*bar_);
    keepTextsOnTheirSide(*this);
    new WindowBinding(*this, controller.window());
}

StatusPanelWindow::~StatusPanelWindow()
{
    bar_->setObserver(nullptr);
}

void StatusPanelWindow::controlChanged(Control&)
{
    // A bar with no range moves by itself, which is how it shows that no end is known.
    form_->progressBar->setRange(0, bar_->isIndeterminate() && bar_->isAnimating() ? 0 : steps);
    const double range = bar_->maxValue() - bar_->minValue();
    const double part = range > 0 ? (bar_->doubleValue() - bar_->minValue()) / range : 0.0;
    form_->progressBar->setValue(int(std::clamp(part, 0.0, 1.0) * steps));
}

} // namespace zolt
