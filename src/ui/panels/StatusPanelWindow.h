// A progress panel that stands alone.
#pragma once

#include "platform/controls/ProgressIndicator.h"

#include <QWidget>

#include <memory>

namespace Ui {
class StatusPanel;
}

namespace zolt {

class StatusPanelController;

/// Main thread.
class StatusPanelWindow : public QWidget, public ControlObserver
{
public:
    explicit StatusPanelWindow(StatusPanelController& controller);
    ~StatusPanelWindow() override;

    /// The bar's model has changed.
    void controlChanged(Control& control) override;

private:
    const std::unique_ptr<Ui::StatusPanel> form_;
    const std::shared_ptr<ProgressIndicator> bar_;
};

} // namespace zolt
