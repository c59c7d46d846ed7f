// The queue panel.
#pragma once

#include "platform/controls/Table.h"

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

#include <memory>

namespace Ui {
class StatusQueue;
}

namespace zolt {

class StatusQueueModel;
class ZOLTTask;
class ZOLTTaskQueue;

/// Draws at most 20 times a second, whatever the tools print: while tasks are open a timer looks at the rows that are
/// on screen, and only where they have changed are they drawn. Main thread.
class StatusQueueWindow : public QWidget, public ControlObserver
{
public:
    /// @param queue  outlives its tasks' work; what is asked later than that asks nothing of it
    explicit StatusQueueWindow(ZOLTTaskQueue& queue);
    ~StatusQueueWindow() override;

    /// The queue's table has changed: rows came or went, or one is to be shown.
    void controlChanged(Control& control) override;
    /// How often the rows were drawn because they had changed.
    int refreshes() const { return refreshes_; }

protected:
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void refresh();
    void refreshTexts();
    void followRunningRow();
    void showMenu(const QPoint& place);
    std::shared_ptr<ZOLTTask> taskOf(int row) const;
    void showOutput(const ZOLTTask& task);
    void copySelected() const;
    void cancelAll();

    const std::unique_ptr<Ui::StatusQueue> form_;
    ZOLTTaskQueue& queue_;
    const std::shared_ptr<Table> table_;
    StatusQueueModel* const model_;
    QTimer timer_;
    QElapsedTimer atWork_;
    QString lastVisible_;
    int shownRow_ = -1;
    int refreshes_ = 0;
};

} // namespace zolt
