#include "platform/desktop/Panels.h"

#include "platform/Log.h"

#include <atomic>

namespace zolt {

namespace {

/// Nobody is there to ask: every question counts as dismissed, which never starts or deletes anything.
class NoPanels : public Panels
{
public:
    int runAlert(const QString& title, const QString& message, const QString&, const QString&, const QString&) override
    {
        qCWarning(platformLog).noquote() << "No panel to ask:" << title << message;
        return alertReply::otherButton;
    }
    std::optional<QStringList> openPanel(const OpenPanelRequest& request) override
    {
        qCWarning(platformLog).noquote() << "No panel to open files with:" << request.title;
        return std::nullopt;
    }
    OptionalText savePanel(const SavePanelRequest& request) override
    {
        qCWarning(platformLog).noquote() << "No panel to save with:" << request.fileName;
        return std::nullopt;
    }
    void runModalForWindow(Window&) override {}
    void stopModal() override {}
};

std::atomic<Panels*> installed = nullptr;

} // namespace

Panels& panels()
{
    static NoPanels none;
    if (Panels* const current = installed) return *current;
    return none;
}

void installPanels(Panels* panels)
{
    installed = panels;
}

} // namespace zolt
