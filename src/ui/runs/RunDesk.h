// What a person does with runs: looks at them, saves their reports, has failed files come back.
#pragma once

#include "engine/RunRecord.h"
#include "ui/runs/HistoryWindow.h"

namespace zolt {

class MainWindow;
class QtInterfaces;
class ZOLTController;

/// Ties the record to the windows: the foot, the history, gathered reports and their menu entries. Main thread.
class RunDesk : private RunListener
{
public:
    /// All of them outlive this object.
    RunDesk(RunRecord& record, ZOLTController& controller, MainWindow& window, QtInterfaces& interfaces);
    ~RunDesk() override;
    RunDesk(const RunDesk&) = delete;
    RunDesk& operator=(const RunDesk&) = delete;

    HistoryWindow& history() { return *history_; }
    /// Puts the sources of the run's failed rows back into the lists of the tabs that queued them, and shows these.
    void retry(const Run& run);
    /// Shows the reports of the last run: gathered, where they are, or where their windows were closed; else the
    /// windows.
    void showReports();
    /// Shows the last run: its reports if it has some, else its rows.
    void showLastRun();

private:
    void runEnded(const Run& run) override;
    void wireMenus(QtInterfaces& interfaces);
    void saveReports();
    void gather(bool first);

    RunRecord& record_;
    ZOLTController& controller_;
    MainWindow& window_;
    QtInterfaces& interfaces_;
    std::unique_ptr<HistoryWindow> history_;
};

} // namespace zolt
