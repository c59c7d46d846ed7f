// The queue panel.
#pragma once

#include "platform/controls/Table.h"

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

#include <memory>
#include <vector>

namespace Ui {
class StatusQueue;
}

namespace zolt {

class RunRecord;
class StatusQueueModel;
class ZOLTTask;
class ZOLTTaskQueue;

/// Draws at most 20 times a second, whatever the tools print: while tasks are open a timer looks at the rows that are
/// on screen, and only where they have changed are they drawn. The head follows four times a second. Main thread.
class StatusQueueWindow : public QWidget, public ControlObserver
{
public:
    /// @param queue  outlives its tasks' work; what is asked later than that asks nothing of it
    explicit StatusQueueWindow(ZOLTTaskQueue& queue);
    ~StatusQueueWindow() override;

    /// The queue's table has changed: rows came or went, or one is to be shown.
    void controlChanged(Control& control) override;
    /// From now on the head tells how far the record's run is. @param record  outlives this object; nullptr for none
    void setRecord(RunRecord* record);
    /// How often the rows were drawn because they had changed.
    int refreshes() const { return refreshes_; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void refresh();
    void refreshHead();
    void refreshButtons();
    void followRunningRow();
    void wireButtons();
    void showMenu(const QPoint& place);
    std::shared_ptr<ZOLTTask> taskOf(int row) const;
    std::vector<std::shared_ptr<ZOLTTask>> selectedTasks() const;
    void removeSelected();
    void copySelected() const;
    QString headText() const;
    /// Whether the panel, closed by a person, comes up by itself: always, or for a command alone.
    bool comesBack() const;

    const std::unique_ptr<Ui::StatusQueue> form_;
    ZOLTTaskQueue& queue_;
    const std::shared_ptr<Table> table_;
    StatusQueueModel* const model_;
    QTimer timer_;
    QElapsedTimer sinceHead_;
    RunRecord* record_ = nullptr;
    QString lastVisible_;
    int shownRow_ = -1;
    int refreshes_ = 0;
    qsizetype rowsAtClose_ = 0;
};

} // namespace zolt
