// What the program asks of the desktop, over Qt and the session's bus.
#pragma once

#include "platform/desktop/Desktop.h"
#include "ui/bus/LauncherBadge.h"

#include <QWidget>

#include <functional>
#include <memory>
#include <mutex>

namespace zolt {

/// Made and destroyed on the main thread; nothing that another thread asked for arrives after that.
class QtDesktop : public Desktop
{
public:
    QtDesktop();
    ~QtDesktop() override;

    void setBadgeLabel(const OptionalText& label) override;
    void requestUserAttention(int level) override;
    void terminate() override;

    /// The window that attention is drawn to. Main thread.
    void setMainWindow(QWidget* window) { mainWindow_ = window; }
    /// What terminate() does, on the main thread.
    void setTerminateHandler(std::function<void()> handler) { terminate_ = std::move(handler); }

private:
    void onMain(std::function<void()> work);
    void showBadge();

    QWidget* mainWindow_ = nullptr;
    std::function<void()> terminate_;
    LauncherBadge badge_;
    std::mutex mutex_;
    OptionalText label_;
    bool badgePosted_ = false;
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true); ///< read on the main thread alone
};

} // namespace zolt
