// Alerts and panels as windows of the desktop.
#pragma once

#include "platform/desktop/Panels.h"
#include "ui/panels/ModalRuns.h"

#include <functional>

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

    /// Tells where the files lie that a person works on, or nothing; the dialogs for files open there.
    void setFolderOfWork(std::function<QString()> folder) { folderOfWork_ = std::move(folder); }

private:
    QString startFolder();

    std::function<QString()> folderOfWork_;
    QString work_;   ///< where it was when the last dialog opened
    QString folder_; ///< of the last dialog; empty for the working directory
    ModalRuns modalRuns_;
};

} // namespace zolt
