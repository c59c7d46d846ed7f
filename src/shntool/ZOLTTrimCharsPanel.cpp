#include "shntool/ZOLTTrimCharsPanel.h"

#include "platform/desktop/Interfaces.h"
#include "platform/desktop/Panels.h"
#include "platform/errors/Exceptions.h"

namespace zolt {

void ZOLTTrimCharsPanel::controlTextDidChange()
{
    try {
        number_ = numberField->intValue();
    } catch (const PlatformException&) {
        numberField->setStringValue(QStringLiteral("0"));
        number_ = 0;
    }
}

void ZOLTTrimCharsPanel::cancel(Sender)
{
    endRun(false);
}

void ZOLTTrimCharsPanel::ok(Sender)
{
    endRun(true);
}

void ZOLTTrimCharsPanel::endRun(bool okReturned)
{
    okReturned_ = okReturned;
    panels().stopModal();
}

std::optional<TrimCharsObject> ZOLTTrimCharsPanel::runPanel()
{
    okReturned_ = false;
    if (!panel_) loadPanel();
    panel_->makeKeyAndOrderFront();
    panels().runModalForWindow(*panel_);
    panel_->orderOut();
    if (!okReturned_) return std::nullopt;
    return TrimCharsObject(number_, positionMatrix->selectedColumn());
}

void ZOLTTrimCharsPanel::loadPanel()
{
    panel_ = std::make_shared<Window>();
    numberField->setAction([this] { controlTextDidChange(); });
    loadInterface(QStringLiteral("TrimCharsPanel"), this);
}

} // namespace zolt
