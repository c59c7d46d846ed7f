#include "app/Program.h"

#include "decode/DecodeTab.h"
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
    decodeTab_ = std::make_unique<DecodeTab>();
    // Decode, encode and checksum are known by their index, 0 to 2.
    connect(*decodeTab_, Constants::DECODE);
    controller_->decodeTab = decodeTab_.get();
    controller_->tabView->addTabViewItem(std::make_shared<TabViewItem>(Constants::ABOUT));
    decodeTab_->awakeFromNib();
    controller_->awakeFromNib();
    controller_->applicationWillFinishLaunching();
    controller_->applicationDidFinishLaunching();
}

Program::~Program() = default;

void Program::connect(BaseTab& tab, const QString& label)
{
    tab.tabViewItem = std::make_shared<TabViewItem>(label);
    tab.zoltController = controller_.get();
    controller_->tabView->addTabViewItem(tab.tabViewItem);
}

void Program::finish()
{
    // What the end of a task hands over may queue another, which has to be ended in its turn.
    do {
        controller_->applicationWillTerminate();
        waitForDetachedThreads();
        MainQueue::instance().drain();
    } while (controller_->taskQueue()->taskCount() > 0 || detachedThreadCount() > 0);
}

} // namespace zolt
