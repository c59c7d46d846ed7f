// What the pages of the main window have in common.
#pragma once

#include <QWidget>

namespace zolt {

class FilesPanel;

/// The view of one tab. Main thread.
class TabPage : public QWidget
{
public:
    using QWidget::QWidget;

    /// The page's list; none for a page without one.
    virtual FilesPanel* files() const { return nullptr; }
    /// What the page's one command button does; a page without one does nothing.
    virtual void pressCommand() {}
    /// What the menu calls the command; empty for a page without one.
    virtual QString commandName() const { return QString(); }
    /// Gives up what is looked up beside the main thread: the program ends and nobody will read it.
    virtual void stopLookingUp() {}

protected:
    /// Tells of those of the tools that are missing. @return true if none is
    static bool toolsAreThere(const QStringList& tools);
};

} // namespace zolt
