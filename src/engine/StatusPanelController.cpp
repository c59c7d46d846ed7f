#include "engine/StatusPanelController.h"

#include "platform/desktop/Interfaces.h"

namespace zolt {

StatusPanelController::StatusPanelController()
    : window_(std::make_shared<Window>()), textField_(std::make_shared<TextField>(TextField::labelStyle())),
      progressBar_(std::make_shared<ProgressIndicator>())
{
    loadInterface(QStringLiteral("StatusPanel"), this);
}

void StatusPanelController::setDeterminateMax(double minimum, double maximum)
{
    progressBar_->setIndeterminate(false);
    progressBar_->setMinValue(minimum);
    progressBar_->setMaxValue(maximum);
}

} // namespace zolt
