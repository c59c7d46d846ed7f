#include "shell/PreferencesController.h"

#include "platform/desktop/Interfaces.h"

namespace zolt {

void PreferencesController::initToolbar()
{
    loadInterface(QStringLiteral("Preferences"), this);
}

void PreferencesController::showWindow()
{
    window_->makeKeyAndOrderFront();
}

} // namespace zolt
