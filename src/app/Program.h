// The program as both front ends run it: the controller and the tabs, connected.
#pragma once

#include "platform/errors/Exceptions.h"
#include "shell/BaseTab.h"

#include <memory>
#include <vector>

namespace zolt {

class RunRecord;
class ZOLTController;

/// Made once, after the application object and after the front end has installed its panels, desktop and interfaces.
/// Main thread.
class Program
{
public:
    /// Goes through the whole start: default settings, controller, tabs, interfaces, end of launching.
    Program();
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    ZOLTController& controller() { return *controller_; }
    /// What the queue's runs are.
    RunRecord& record() { return *record_; }
    /// The program's tab of that class, which must be one of the table's.
    template <class Tab> Tab& tab() const
    {
        for (const auto& each : tabs_) {
            if (auto* const found = dynamic_cast<Tab*>(each.get())) return *found;
        }
        throw AssertionException(QStringLiteral("The program has no such tab."));
    }

    /// Ends the program's work: cancels every open task, waits for the running tools, and returns when no task's
    /// thread runs and nothing waits for the main thread. The event loop goes on meanwhile.
    void finish();

private:
    std::unique_ptr<ZOLTController> controller_;
    std::unique_ptr<RunRecord> record_;
    std::vector<std::unique_ptr<BaseTab>> tabs_;
};

} // namespace zolt
