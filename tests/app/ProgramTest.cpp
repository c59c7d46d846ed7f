#include "app/Program.h"

#include "decode/DecodeTab.h"
#include "engine/EngineFixture.h"
#include "engine/ZOLTTaskQueue.h"
#include "platform/threads/DetachedThreads.h"
#include "shell/Constants.h"
#include "shell/ZOLTController.h"
#include "shntool/SHNtoolTab.h"
#include "shntool/TrackNameInputController.h"
#include "support/EndlessFolders.h"
#include "support/ScriptedPanels.h"
#include "tags/TagsTab.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

/// A task that never reports its end.
class Forgetful : public ZOLTTask
{
public:
    static std::shared_ptr<Forgetful> make(ZOLTTaskQueue* queue)
    {
        std::shared_ptr<Forgetful> task(new Forgetful);
        task->setUpWithQueue(queue);
        return task;
    }
};

class ProgramEnd : public testing::Test
{
protected:
    ZOLTTaskQueue& queue() { return *program_.controller().taskQueue(); }

    RecordingDesktop desktop_;
    Program program_;
};

} // namespace

TEST_F(ProgramEnd, CancelsWhatRunsAndStartsNothing)
{
    queue().maxThreadsChanged({QString(), nullptr, 1});
    const auto running = TestTask::make(&queue()), next = TestTask::make(&queue()), last = TestTask::make(&queue());
    queue().addTasks({running, next, last});
    program_.finish();
    EXPECT_TRUE(running->cancelled() && next->cancelled() && last->cancelled());
    EXPECT_EQ(next->starts + last->starts, 0);
}

TEST_F(ProgramEnd, EndsWhatTheEndOfATaskQueues)
{
    const auto task = TestTask::make(&queue()), following = TestTask::make(&queue());
    task->results()->setTaskAfterSetDone(following);
    queue().addTask(task);
    program_.finish();
    EXPECT_EQ(queue().taskCount(), 0);
    EXPECT_TRUE(following->cancelled());
}

TEST_F(ProgramEnd, ComesThoughATaskForgetsToReport)
{
    queue().addTask(Forgetful::make(&queue()));
    program_.finish(); // returns
    EXPECT_EQ(queue().taskCount(), 1);
}

TEST_F(ProgramEnd, GivesUpFilesThatStillComeIn)
{
    const EndlessFolders folders;
    program_.controller().setWalksInBackground(true);
    auto& tab = program_.tab<DecodeTab>();
    tab.addFiles({folders.path()});
    program_.controller().tabView->selectTabViewItemWithLabel(Constants::ABOUT);
    program_.controller().addFiles({folders.path()});
    EXPECT_TRUE(tab.isTakingIn());
    EXPECT_EQ(detachedThreadCount(), 2);
    program_.finish(); // returns
    EXPECT_FALSE(tab.isTakingIn());
}

TEST(ProgramNames, OneListOfNamesIsThatOfBothTabsWhoeverAskedForIt)
{
    const QTemporaryDir folder;
    QFile sheet(folder.filePath(u"show.cue"_s));
    ASSERT_TRUE(sheet.open(QIODevice::WriteOnly));
    sheet.write("TRACK 01 AUDIO\nTITLE Two\n");
    sheet.close();
    RecordingDesktop desktop;
    ScriptedPanels panels;
    Program program;
    auto& tags = program.tab<TagsTab>();
    auto& shntool = program.tab<SHNtoolTab>();
    TrackNameInputController& names = *program.controller().trackNameInputController();
    names.setNames(u"One\n"_s);
    names.inputOK(nullptr);
    EXPECT_EQ(shntool.names, QStringList{u"One"_s});
    EXPECT_EQ(tags.names(), QStringList{u"One"_s});
    panels.answerOpenPanel(QStringList{sheet.fileName()});
    tags.loadTagsFromCueSheet(nullptr);
    EXPECT_EQ(shntool.names, QStringList{u"Two"_s});
    EXPECT_EQ(names.namesText(), u"Two\n"_s);
}
