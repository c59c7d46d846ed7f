#include "app/Program.h"

#include "app/Tabs.h"
#include "engine/RunRecord.h"
#include "engine/ZOLTTaskQueue.h"
#include "platform/threads/DetachedThreads.h"
#include "platform/threads/MainQueue.h"
#include "shell/Constants.h"
#include "shell/ZOLTController.h"

namespace zolt {

Program::Program()
{
    ZOLTController::initialize();
    controller_ = std::make_unique<ZOLTController>();
    record_ = std::make_unique<RunRecord>(*controller_->taskQueue());
    for (const TabRow& row : tabRows()) {
        tabs_.push_back(row.make());
        controller_->addTab(*tabs_.back(), row.label);
    }
    controller_->tabView->addTabViewItem(std::make_shared<TabViewItem>(Constants::ABOUT));
    controller_->awakeFromNib();
    controller_->applicationWillFinishLaunching();
    controller_->applicationDidFinishLaunching();
}

Program::~Program() = default;

void Program::finish()
{
    ZOLTTaskQueue& queue = *controller_->taskQueue();
    ZOLTTaskQueue::Tasks before;
    // What the end of a task hands over may queue another, which has to be ended in its turn. A task that never reports
    // is left behind: nothing can end it.
    do {
        before = queue.taskArray();
        queue.endEverything([this] { controller_->applicationWillTerminate(); });
        waitForDetachedThreads();
        MainQueue::instance().drain();
    } while (detachedThreadCount() > 0 || (queue.taskCount() > 0 && queue.taskArray() != before));
}

} // namespace zolt
