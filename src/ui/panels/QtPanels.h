// Alerts and panels as windows of the desktop.
#pragma once

#include "platform/desktop/Panels.h"
#include "ui/panels/ModalRuns.h"

namespace zolt {

/// Questions from other threads are asked on the main thread, and the asking thread waits for the answer.
class QtPanels : public Panels
{
public:
    int runAlert(const QString& title, const QString& message, const QString& defaultButton,
                 const QString& alternateButton = {}, const QString& otherButton = {}) override;
    std::optional<QStringList> openPanel(const OpenPanelRequest& request) override;
    OptionalText savePanel(const SavePanelRequest& request) override;
    void runModalForWindow(Window& window) override;
    void stopModal() override;

private:
    ModalRuns modalRuns_;
};

} // namespace zolt
