// A progress panel that stands alone.
#pragma once

#include "platform/controls/ProgressIndicator.h"
#include "platform/controls/TextField.h"
#include "platform/controls/Window.h"

#include <memory>

namespace zolt {

/// Forwards to its two controls and carries no logic. Any thread.
class StatusPanelController
{
public:
    /// Loads the interface "StatusPanel".
    StatusPanelController();

    void windowDidLoad() {}
    void setText(const QString& text) { textField_->setStringValue(text); }
    void setDeterminateMax(double minimum, double maximum);
    void setInDeterminate() { progressBar_->setIndeterminate(true); }
    void startAnimation(Sender) { progressBar_->startAnimation(); }
    void stopAnimation(Sender) { progressBar_->stopAnimation(); }
    void setProgress(double value) { progressBar_->setDoubleValue(value); }
    void incrementProgress(double amount) { progressBar_->incrementBy(amount); }

    const std::shared_ptr<Window>& window() const { return window_; }
    const std::shared_ptr<TextField>& textField() const { return textField_; }
    const std::shared_ptr<ProgressIndicator>& progressBar() const { return progressBar_; }

private:
    std::shared_ptr<Window> window_;
    std::shared_ptr<TextField> textField_;
    std::shared_ptr<ProgressIndicator> progressBar_;
};

} // namespace zolt
