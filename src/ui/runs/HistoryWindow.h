// The runs since the start, each with its rows and their reports.
#pragma once

#include "ui/runs/RunRowsModel.h"

#include <QTimer>
#include <QWidget>

#include <functional>
#include <memory>

namespace Ui {
class HistoryWindow;
}

namespace zolt {

class RunRecord;

/// Hidden until it is asked for; follows a run in progress a few times a second while it is seen. Main thread.
class HistoryWindow : public QWidget
{
public:
    /// @param record  outlives this object
    /// @param retry   called with a run whose failed files are wanted back
    HistoryWindow(RunRecord& record, std::function<void(const Run&)> retry);
    ~HistoryWindow() override;

    /// Shows the newest run and takes the keyboard.
    void showLatest(RunFilter filter);
    /// A report has come that has no window of its own. The first of a run has the window come up with the reports of
    /// that run, without the keyboard; behind others it stays as its reader has it, and lists them at its next look.
    void reportCame(bool first);
    /// The run that is chosen; none before the first.
    const Run* run() const;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void readyColumns();
    void wire();
    void chooseLatest(RunFilter filter);
    void listRuns();
    void showRun();
    void showReport();
    void refresh();
    void exportRun();
    QString title(const Run& run) const;

    const std::unique_ptr<Ui::HistoryWindow> form_;
    RunRecord& record_;
    const std::function<void(const Run&)> retry_;
    RunRowsModel* const model_;
    QTimer timer_;
    const RunRow* shown_ = nullptr; ///< whose report stands in the pane
};

} // namespace zolt
