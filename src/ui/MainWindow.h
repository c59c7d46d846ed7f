// The main window: one page a tab.
#pragma once

#include "platform/controls/TabView.h"

#include <QHash>
#include <QMainWindow>

#include <functional>
#include <memory>

namespace Ui {
class MainMenu;
}

namespace zolt {

class MenuActions;
class RunFoot;
class TabPage;
class ZOLTController;

/// Shows the controller's tabs in their order, each by the page made for its label. Closing it quits. Main thread.
class MainWindow : public QMainWindow, public ControlObserver
{
public:
    using PageBuilder = std::function<TabPage*(QWidget* parent)>;
    using PageBuilders = QHash<QString, PageBuilder>;

    /// @param controller  outlives this object's use
    /// @param pages       by the tab's label; a tab without one has an empty page
    MainWindow(ZOLTController& controller, const PageBuilders& pages);
    ~MainWindow() override;

    /// The controller's tab view has changed.
    void controlChanged(Control& control) override;
    /// Brings the window to the front with the keyboard, as when the program is started again.
    void present();
    /// From now on the window closes without a question: the program is ending.
    void setEnding(bool ending);
    /// The page in front.
    TabPage* page() const;
    void selectTab(int index);
    RunFoot& runFoot() const;

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void addPage(int index, const PageBuilders& pages);
    void askToClose();

    const std::unique_ptr<Ui::MainMenu> form_;
    ZOLTController& controller_;
    const std::shared_ptr<TabView> tabView_;
    MenuActions* menus_ = nullptr;
    bool asking_ = false;
    bool ending_ = false;
};

} // namespace zolt
