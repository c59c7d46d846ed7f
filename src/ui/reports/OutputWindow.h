// Shows a report.
#pragma once

#include "engine/OutputWindowController.h"

#include <QWidget>

#include <functional>
#include <memory>

namespace Ui {
class OutputWindow;
}

namespace zolt {

class WindowBinding;

/// Goes for good when it is closed; the report itself stays with the queue. Main thread.
class OutputWindow : public QWidget, public ControlObserver
{
public:
    explicit OutputWindow(OutputWindowController& controller);
    ~OutputWindow() override;

    /// The text view's model has changed.
    void controlChanged(Control& control) override;
    /// Offers to gather reports from now on. @param gather  called when a person wants that
    void offerGathering(std::function<void()> gather);

private:
    void addKeys();
    void place();
    void escape();

    const std::unique_ptr<Ui::OutputWindow> form_;
    const std::shared_ptr<Window> model_;
    const std::shared_ptr<TextView> text_;
    const ReportFacts facts_;
    std::function<void()> gather_;
};

} // namespace zolt
