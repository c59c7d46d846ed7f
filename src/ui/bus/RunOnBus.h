// What the desktop learns of runs.
#pragma once

#include "engine/RunRecord.h"
#include "ui/bus/Inhibition.h"
#include "ui/bus/LauncherProgress.h"
#include "ui/bus/RunNotice.h"

#include <QTimer>

#include <optional>

namespace zolt {

/// While a run is in progress the computer stays awake and the program's icon shows how far it is; its end is told by a
/// notification where nobody looks at the program. Main thread.
class RunOnBus : private RunListener
{
public:
    /// @param record   outlives this object
    /// @param inFront  whether a person looks at the program
    RunOnBus(RunRecord& record, std::function<bool()> inFront,
             const QDBusConnection& session = QDBusConnection::sessionBus(),
             const QDBusConnection& system = QDBusConnection::systemBus());
    ~RunOnBus() override;
    RunOnBus(const RunOnBus&) = delete;
    RunOnBus& operator=(const RunOnBus&) = delete;

    /// Called when a person wants to see the report of the run that has ended.
    void setShowReport(std::function<void()> showReport) { notice_.setShowReport(std::move(showReport)); }

private:
    void runBegan(const Run& run) override;
    void runEnded(const Run& run) override;

    RunRecord& record_;
    const std::function<bool()> inFront_;
    QDBusConnection session_;
    QDBusConnection system_;
    RunNotice notice_;
    LauncherProgress progress_;
    std::optional<Inhibition> awake_;
    QTimer tick_;
};

} // namespace zolt
