// One headless run: options in, tab set and pressed, rows and reports out.
#pragma once

#include "app/Program.h"
#include "app/batch/BatchCommands.h"
#include "app/batch/BatchPanels.h"
#include "app/batch/Interrupts.h"
#include "app/batch/RowPrinter.h"
#include "engine/RunRecord.h"

#include <QTimer>

namespace zolt {

class ZOLTTaskQueue;
struct Outlook;

namespace batch {

/// What a run ends with.
namespace exitStatus {
inline constexpr int allComplete = 0;
inline constexpr int failed = 1;       ///< a task failed, or an input was left out
inline constexpr int nothingToDo = 2;  ///< or wrong usage
inline constexpr int signalBase = 128; ///< and the signal's number: 130 after Ctrl-C
} // namespace exitStatus

/// Main thread, made after the application object; run() once.
class BatchRun : private RunListener
{
public:
    /// @param options  of a sub-command of the table
    explicit BatchRun(BatchOptions options);
    ~BatchRun() override;

    /// Returns when every task has ended and nothing that they left behind waits or runs.
    /// @return one of exitStatus
    int run();

private:
    void rowAdded(const RunRow& row) override;
    void rowEnded(const RunRow& row) override;
    void rowReported(const RunRow& row) override;
    void rowClosed(const RunRow& row) override;

    bool enterFiles(BaseTab& tab);
    QString folderOfOutputs(const BaseTab& tab) const;
    bool canWriteFile(const BaseTab& tab);
    void tellOfFile();
    bool mayStart(const BaseTab& tab);
    void leaveOut(const Outlook& outlook);
    void answer(const BaseTab& tab);
    void work(BaseTab& tab);
    void workAtOnce(BaseTab& tab);
    void press(BaseTab& tab);
    void giveUp(const PlatformException& fault);
    void waitForAll();
    bool settled() const;
    void interrupted(int signal);
    void stopNow();
    void printReports() const;
    void printSummary() const;
    int status() const;
    ZOLTTaskQueue& queue();
    void refuse(const QString& text);

    const BatchOptions options_;
    const BatchCommand& command_;
    BaseTab* tab_ = nullptr; ///< once it is set up
    Interrupts interrupts_;
    BatchPanels panels_;
    std::unique_ptr<RowPrinter> rows_;
    std::unique_ptr<Program> program_;
    QTimer stopTick_;
    QHash<QString, QStringList> outputs_; ///< by source
    QString file_;                        ///< the one that the command writes; empty for another command
    std::optional<Run> atOnce_;           ///< of a command without tasks
    QList<qsizetype> leftOut_;            ///< rows of the list whose output exists already
    bool pressed_ = false;
    bool anyFailed_ = false;
    int signal_ = 0; ///< the first that came
};

} // namespace batch
} // namespace zolt
