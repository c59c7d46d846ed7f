// What the pages of the main window have in common.
#pragma once

#include <QWidget>

#include <functional>

namespace zolt {

class BaseTab;

/// The view of one tab. Main thread.
class TabPage : public QWidget
{
public:
    using QWidget::QWidget;

    /// What Ctrl+O does; a page without a list does nothing.
    virtual void addFiles() {}
    /// What the page's one command button does; a page without one does nothing.
    virtual void pressCommand() {}
    /// What the menu calls the command; empty for a page without one.
    virtual QString commandName() const { return QString(); }

protected:
    /// Looks up the tools that the tab's command needs now, and tells of those that are missing.
    /// @return true if none is
    static bool toolsAreThere(const BaseTab& tab);
};

} // namespace zolt
