// What the main window's menus do.
#pragma once

#include <QObject>

#include <functional>

class QAction;

namespace Ui {
class MainMenu;
}

namespace zolt {

class MainWindow;
class TagsTab;
class ZOLTController;

/// Main thread.
class MenuActions : public QObject
{
public:
    /// @param form, controller, window  outlive this object
    MenuActions(Ui::MainMenu& form, ZOLTController& controller, MainWindow& window);

    /// The page in front is another one, or its command has other words now.
    void followPage();

private:
    void connectTo(QAction* action, std::function<void()> work);
    void wireFile();
    void wireEdit();
    void wireView();
    void wireQueue();
    void wireHelp();
    void wireTags();
    void followTags();
    TagsTab* tagsTab() const;
    void step(int tabs);
    void selectAll();

    Ui::MainMenu& form_;
    ZOLTController& controller_;
    MainWindow& window_;
};

} // namespace zolt
