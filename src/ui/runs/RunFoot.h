// The foot of the main window: the run in progress, or what became of the last one.
#pragma once

#include "engine/RunRecord.h"

#include <QTimer>
#include <QWidget>

#include <functional>

class QLabel;
class QPushButton;

namespace zolt {

/// Always as high, so that nothing moves when a run begins or ends. Main thread.
class RunFoot : public QWidget, private RunListener
{
public:
    struct Actions
    {
        std::function<void()> showQueue;
        std::function<void()> showRun;
        std::function<void()> retryFailed;
    };

    explicit RunFoot(QWidget* parent = nullptr);
    ~RunFoot() override;

    /// From now on tells of the record's runs. @param record  outlives this object, or nullptr takes it away before
    void setRecord(RunRecord* record, Actions actions = {});
    QString text() const;

private:
    void runBegan(const Run& run) override;
    void runEnded(const Run& run) override;
    QPushButton* button(const QString& name, const QString& text, const QString& toolTip,
                        std::function<void()> Actions::*action);
    void refresh();

    RunRecord* record_ = nullptr;
    Actions actions_;
    QTimer timer_;
    QLabel* const label_;
    QPushButton* const queueButton_;
    QPushButton* const showButton_;
    QPushButton* const retryButton_;
};

} // namespace zolt
