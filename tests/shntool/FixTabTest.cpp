#include "shntool/FixTab.h"
#include "shntool/FixTask.h"
#include "support/FakeTool.h"
#include "support/FakeTools.h"
#include "support/TabFixture.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

using C = Constants;

class FixTabTest : public TabFixture<FixTab>
{
protected:
    FixTabTest() : TabFixture(C::FIX_SBE) { holdQueue(); }

    void choose(const QString& format)
    {
        tab.outputFormatMatrix->selectTitle(format);
        tab.displayRelevantOptions();
    }
    std::shared_ptr<FixTask> pressed()
    {
        tab.addFiles({pathOf(u"d1t01.wav"_s), pathOf(u"d1t02.wav"_s)});
        panels_.answerOpenPanel(QStringList{pathOf(u"out"_s)});
        tab.executeCommand(nullptr);
        const auto tasks = queued<FixTask>();
        return tasks.empty() ? nullptr : tasks.front();
    }
};

} // namespace

TEST_F(FixTabTest, BeginsWithFlac)
{
    QStringList titles;
    for (int i = 0; i < 4; ++i)
        titles += tab.outputFormatMatrix->cellAt(i / 2, i % 2).title;
    EXPECT_EQ(titles, QStringList({C::SHN, C::FLAC, C::AIFF, C::WAV}));
    EXPECT_EQ(tab.outputFormatMatrix->selectedCell().title, C::FLAC);
    EXPECT_EQ(tab.shnMd5Option->selectedCell().title, u"None"_s);
    EXPECT_TRUE(tab.flacLevelSlider->isEnabled());
    EXPECT_FALSE(tab.shnMd5Option->isEnabled());
}

TEST_F(FixTabTest, FormatAndLevelAreThoseSavedAndEachChangeIsSaved)
{
    auto& settings = UserDefaults::standard();
    EXPECT_EQ(tab.flacLevelSlider->intValue(), 4);
    tab.flacLevelSlider->moveTo(7);
    tab.outputFormatMatrix->clickCell(1, 1);
    EXPECT_EQ(settings.integerForKey(u"fixOutputFormat"_s), 3);
    EXPECT_EQ(settings.integerForKey(u"fixFlacLevel"_s), 7);
    const FixTab next;
    EXPECT_EQ(next.outputFormatMatrix->selectedCell().title, C::WAV);
    EXPECT_EQ(next.flacLevelSlider->intValue(), 7);
}

TEST_F(FixTabTest, LevelIsToldWithWhatBecomesOfIt)
{
    tab.flacLevelSlider->moveTo(7);
    EXPECT_EQ(tab.flacLevelInWords(), u"FLAC level 7 of 8; shntool takes flac's own"_s);
}

TEST_F(FixTabTest, FormatEnablesItsOwnChoices)
{
    choose(C::SHN);
    EXPECT_FALSE(tab.flacLevelSlider->isEnabled());
    EXPECT_TRUE(tab.shnMd5Option->isEnabled());
    choose(C::WAV);
    EXPECT_FALSE(tab.flacLevelSlider->isEnabled());
    EXPECT_FALSE(tab.shnMd5Option->isEnabled());
    tab.outputFormatMatrix->clickCell(0, 1);
    EXPECT_TRUE(tab.flacLevelSlider->isEnabled());
}

TEST_F(FixTabTest, TaskGetsTheListItselfAndTheListStays)
{
    tab.shnMd5Option->selectTitle(FixTask::MD5ByDisc); // enabled or not
    tab.flacLevelSlider->setIntValue(3);
    const auto task = pressed();
    ASSERT_TRUE(task);
    EXPECT_EQ(task->outputFormat(), u"flac"_s);
    EXPECT_EQ(task->outputPath(), pathOf(u"out"_s));
    EXPECT_EQ(task->md5Option(), FixTask::MD5ByDisc);
    EXPECT_EQ(task->flacLevel(), 3);
    EXPECT_FALSE(task->deleteOriginal());
    EXPECT_EQ(tab.fileNames().count(), 2);
}

TEST_F(FixTabTest, FilesThatAreLeftOutAreNeitherFixedNorDeletedAndStay)
{
    FakeTools tools;
    tools.install(u"shntool"_s, {u"wait-file"_s, pathOf(u"go"_s)});
    queue().maxThreadsChanged({QString(), nullptr, 1});
    const QString one = file(u"1.wav"_s), two = file(u"2.wav"_s), three = file(u"3.wav"_s);
    tab.deleteOriginalsButton->setState(true);
    tab.addFiles({one, two, three});
    panels_.answerAlert(1);
    panels_.answerOpenPanel(QStringList{folder()});
    tab.executeCommandWithout({1});
    EXPECT_EQ(tab.fileNames().count(), 3) << "until the task has ended";
    touch(pathOf(u"go"_s));
    ASSERT_TRUE(runUntil([this] { return queue().taskCount() == 0 && tab.fileNames().count() == 1; }));
    EXPECT_EQ(tab.fileNames().copy(), QStringList{two});
    EXPECT_EQ(tools.calls(u"shntool"_s).value(0).filter(u".wav"_s), QStringList({one, three}));
    EXPECT_TRUE(exists(u"2.wav"_s));
    EXPECT_FALSE(exists(u"1.wav"_s) || exists(u"3.wav"_s));
}

TEST_F(FixTabTest, EmptyListAsksNothing)
{
    tab.executeCommand(nullptr);
    EXPECT_EQ(queue().taskCount(), 0);
}

TEST_F(FixTabTest, DeletionIsConfirmedFirst)
{
    tab.deleteOriginalsButton->setState(true);
    tab.addFiles({pathOf(u"a.wav"_s)});
    panels_.answerAlert(0);
    tab.executeCommand(nullptr);
    EXPECT_EQ(queue().taskCount(), 0);
    EXPECT_EQ(tab.fileNames().count(), 1);
    const auto asked = panels_.alerts().front();
    EXPECT_EQ(asked.title, u"You have chosen to delete the original files.  Are you sure you want to continue?"_s);
    EXPECT_EQ(asked.buttons, QStringList({u"Yes"_s, u"No"_s}));
    panels_.answerAlert(1);
    const auto task = pressed();
    ASSERT_TRUE(task);
    EXPECT_TRUE(task->deleteOriginal());
}

TEST_F(FixTabTest, DismissedFolderKeepsTheList)
{
    tab.addFiles({pathOf(u"a.wav"_s)});
    panels_.answerOpenPanel(std::nullopt);
    tab.executeCommand(nullptr);
    EXPECT_EQ(queue().taskCount(), 0);
    EXPECT_EQ(tab.fileNames().count(), 1);
}

TEST_F(FixTabTest, PlanTellsOutputsUnderTheirSourcesNames)
{
    tab.addFiles({pathOf(u"a.wav"_s), pathOf(u"B.WAV"_s)});
    tab.setDestination(u"/out"_s);
    tab.deleteOriginalsButton->setState(true);
    const WorkPlan plan = tab.workPlan();
    ASSERT_EQ(plan.items.size(), 2U);
    EXPECT_EQ(plan.items[0].outputs, QStringList({u"/out/B.flac"_s}));
    EXPECT_EQ(plan.items[1].outputs, QStringList({u"/out/a.flac"_s}));
    EXPECT_EQ(plan.tools, QStringList({u"shntool"_s, u"flac"_s}));
    EXPECT_EQ(plan.words, u"2 WAV files with repaired sector boundaries, to FLAC"_s);
    EXPECT_TRUE(plan.deletes);
    EXPECT_TRUE(plan.needsFolder);
    EXPECT_TRUE(plan.cautions.isEmpty());
    EXPECT_EQ(tab.outlets().size(), 4U);
}

TEST_F(FixTabTest, RefusesASecondPressWhileAFixOfTheListIsOpen)
{
    EXPECT_EQ(tab.workPlan().refusal, QString());
    const auto task = pressed();
    EXPECT_TRUE(tab.workPlan().refusal.startsWith(u"A fix of these files is under way"_s));
    const unsigned reloads = tab.tableView->reloads();
    task->cancelTask(nullptr); // it never began
    EXPECT_GT(tab.tableView->reloads(), reloads) << "whoever shows the list asks again";
    EXPECT_EQ(tab.workPlan().refusal, QString());
    EXPECT_EQ(tab.fileNames().count(), 2);
}
