// The preferences window.
#pragma once

#include "platform/controls/Window.h"

#include <memory>

namespace zolt {

/// Main thread.
class PreferencesController
{
public:
    /// Readies the window's toolbar once the interfaces are loaded.
    void initToolbar();
    void showWindow();
    const std::shared_ptr<Window>& window() const { return window_; }

private:
    std::shared_ptr<Window> window_ = std::make_shared<Window>();
};

} // namespace zolt
