// Modal windows that run until somebody says stop.
#pragma once

#include <QEventLoop>
#include <QWidget>

#include <vector>

namespace zolt {

/// Runs may lie inside one another; stopping ends the innermost. Main thread.
class ModalRuns
{
public:
    /// Shows the widget, keeps the program's other windows waiting, and returns after stop() or when the widget was
    /// closed.
    void run(QWidget& widget);
    void stop();

private:
    std::vector<QEventLoop*> loops_;
};

} // namespace zolt
