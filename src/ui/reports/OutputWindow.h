// Shows a report.
#pragma once

#include "platform/controls/TextView.h"
#include "platform/controls/Window.h"

#include <QWidget>

#include <memory>

namespace Ui {
class OutputWindow;
}

namespace zolt {

class OutputWindowController;
class WindowBinding;

/// Goes for good when it is closed; the report itself stays with the queue. Main thread.
class OutputWindow : public QWidget, public ControlObserver
{
public:
    explicit OutputWindow(OutputWindowController& controller);
    ~OutputWindow() override;

    /// The text view's model has changed.
    void controlChanged(Control& control) override;
    /// Asks where to, and saves the report as text.
    void saveAs();
    /// Closes the line that finds words, or else the window.
    void escape();

private:
    void addKeys();
    void place();

    const std::unique_ptr<Ui::OutputWindow> form_;
    const std::shared_ptr<Window> model_;
    const std::shared_ptr<TextView> text_;
};

} // namespace zolt
