#include "shntool/SHNtoolTab.h"
#include "engine/ZOLTAsyncNSTaskFileOutputRedirection.h"
#include "platform/errors/Exceptions.h"
#include "platform/threads/NotificationCenter.h"
#include "shntool/SHNToolJoinTask.h"
#include "shntool/SHNToolLenTask.h"
#include "shntool/SHNToolPadTask.h"
#include "shntool/SHNToolSplitTask.h"
#include "shntool/SHNToolStripTask.h"
#include "shntool/SHNToolTrimTask.h"
#include "shntool/TrackNameInputController.h"
#include "support/TabFixture.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

using C = Constants;

class SHNtoolTabTest : public TabFixture<SHNtoolTab>
{
protected:
    SHNtoolTabTest() : TabFixture(C::SHNTOOL) { holdQueue(); }

    void fill(const QStringList& names)
    {
        QStringList paths;
        for (const QString& name : names)
            paths += pathOf(name);
        tab.addFiles(paths);
    }
    void press(const QString& command)
    {
        ASSERT_TRUE(tab.shntoolCommandMatrix->selectTitle(command));
        tab.executeCommand(nullptr);
    }
    void answerFolder() { panels_.answerOpenPanel(QStringList{u"/out"_s}); }
    /// Presses with two files in the list. @return the one task that was queued
    template <class Task> std::shared_ptr<Task> taskOf(const QString& command)
    {
        fill({u"b.flac"_s, u"a.wav"_s});
        press(command);
        EXPECT_TRUE(tab.fileNames().isEmpty());
        const auto tasks = queued<Task>();
        EXPECT_EQ(tasks.size(), 1U);
        return tasks.empty() ? nullptr : tasks.front();
    }
    QStringList both() const { return {pathOf(u"a.wav"_s), pathOf(u"b.flac"_s)}; }
    void post(const std::any& names)
    {
        NotificationCenter::standard().post({C::ZOLTTrackNamesEnteredNotification, this, names});
    }
    std::vector<std::shared_ptr<SHNToolLenTask>> measured(const QString& type, const QStringList& files)
    {
        tab.shnLenMatrix->selectTitle(type);
        fill(files);
        press(C::LEN);
        return queued<SHNToolLenTask>();
    }
    std::vector<bool> hidden() const
    {
        return {tab.outputFormatText->isHidden(), tab.outputFormatMatrix->isHidden(), tab.shnLenMatrix->isHidden(),
                tab.namesButton->isHidden()};
    }
};

} // namespace

TEST_F(SHNtoolTabTest, CellsStandInTheOrderInWhichTheyAreCompared)
{
    QStringList commands;
    for (int row = 0; row < tab.shntoolCommandMatrix->rows(); ++row)
        commands += tab.shntoolCommandMatrix->cellAt(row, 0).title;
    EXPECT_EQ(commands, QStringList({u"len"_s, u"info"_s, u"cmp"_s, u"trim"_s, u"split"_s, u"join"_s, u"cue"_s,
                                     u"pad"_s, u"strip"_s}));
    EXPECT_EQ(tab.outputFormatMatrix->selectedCell().title, C::FLAC);
    EXPECT_EQ(tab.shnLenMatrix->selectedCell().title, u"normal len output"_s);
}

TEST_F(SHNtoolTabTest, ChoicesAreThoseSavedAndEachChangeIsSaved)
{
    auto& settings = UserDefaults::standard();
    tab.shntoolCommandMatrix->clickCell(5, 0);
    tab.shnLenMatrix->clickCell(2, 0);
    tab.outputFormatMatrix->clickCell(0, 0);
    EXPECT_EQ(settings.integerForKey(u"shntoolCommandOption"_s), 5);
    EXPECT_EQ(settings.integerForKey(u"shntoolLenOption"_s), 2);
    EXPECT_EQ(settings.integerForKey(u"shntoolOutputFormat"_s), 0);
    const SHNtoolTab next;
    EXPECT_EQ(next.shntoolCommandMatrix->selectedCell().title, C::JOIN);
    EXPECT_EQ(next.shnLenMatrix->selectedCell().title, C::LEN_BY_DISC);
    EXPECT_EQ(next.outputFormatMatrix->selectedCell().title, C::SHN);
}

TEST_F(SHNtoolTabTest, EmptyListDoesNothing)
{
    press(C::JOIN);
    EXPECT_EQ(queue().taskCount(), 0);
}

TEST_F(SHNtoolTabTest, Info)
{
    const auto task = taskOf<ZOLTAsyncNSTask>(C::INFO);
    ASSERT_TRUE(task);
    EXPECT_EQ(task->launchPath(), tab.pathToCommandLineTools() + u"/shntool"_s);
    EXPECT_EQ(task->arguments(), QStringList({u"info"_s}) + both());
    EXPECT_EQ(task->title(), u"Running SHNTool Info"_s);
    EXPECT_EQ(task->textField()->stringValue(), u"Running SHNTool Info"_s);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Waiting..."_s);
    EXPECT_TRUE(task->progressIndicator()->isIndeterminate());
    EXPECT_TRUE(task->progressIndicator()->isAnimating());
}

TEST_F(SHNtoolTabTest, Compare)
{
    const auto task = taskOf<ZOLTAsyncNSTask>(C::CMP);
    ASSERT_TRUE(task);
    EXPECT_EQ(task->arguments(), QStringList({u"cmp"_s}) + both());
    EXPECT_EQ(task->title(), u"shntool compare"_s);
    EXPECT_EQ(task->textField()->stringValue(), u"Comparing"_s);
    EXPECT_EQ(task->topTextField()->stringValue(), u"Comparing"_s);
    EXPECT_TRUE(task->progressIndicator()->isAnimating());
}

TEST_F(SHNtoolTabTest, Cue)
{
    panels_.answerSavePanel(pathOf(u"x.cue"_s));
    const auto task = taskOf<ZOLTAsyncNSTaskFileOutputRedirection>(C::CUE);
    ASSERT_TRUE(task);
    EXPECT_EQ(task->arguments(), QStringList({u"cue"_s, u"-c"_s}) + both());
    EXPECT_EQ(task->title(), u"Creating CUE sheet"_s);
    EXPECT_EQ(task->subTitle(), u"Processing"_s);
    EXPECT_EQ(panels_.saveRequests().front().fileName, u"cuesheet.cue"_s);
    EXPECT_EQ(panels_.saveRequests().front().title, u"Save CUE sheet as"_s);
}

TEST_F(SHNtoolTabTest, Join)
{
    answerFolder();
    tab.outputFormatMatrix->selectTitle(C::SHN);
    const auto task = taskOf<SHNToolJoinTask>(C::JOIN);
    ASSERT_TRUE(task);
    EXPECT_EQ(task->arguments(),
              QStringList({u"join"_s, u"-o"_s, u"shn"_s, u"-n"_s, u"-d"_s, u"/out"_s, u"-O"_s, u"never"_s}) + both());
    EXPECT_FALSE(task->optionalTitle());
    EXPECT_EQ(panels_.openRequests().front().title, u"Choose output directory"_s);
}

TEST_F(SHNtoolTabTest, Trim)
{
    answerFolder();
    const auto task = taskOf<SHNToolTrimTask>(C::TRIM);
    ASSERT_TRUE(task);
    EXPECT_EQ(task->arguments(),
              QStringList({u"trim"_s, u"-d"_s, u"/out"_s, u"-o"_s, u"flac"_s, u"-O"_s, u"never"_s}) + both());
    EXPECT_EQ(task->title(), u"Running SHNTool Trim"_s);
}

TEST_F(SHNtoolTabTest, StripMakesATaskAFileInTheFormatLastChosen)
{
    tab.outputFormatMatrix->selectTitle(C::AIFF);
    tab.shntoolCommandMatrix->selectTitle(C::STRIP);
    tab.displayRelevantOptions(); // hides the formats
    answerFolder();
    fill({u"b.flac"_s, u"a.wav"_s});
    press(C::STRIP);
    const auto tasks = queued<SHNToolStripTask>();
    ASSERT_EQ(tasks.size(), 2U);
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(tasks[i]->arguments(),
                  QStringList({u"strip"_s, u"-d"_s, u"/out"_s, u"-o"_s, u"aiff"_s, u"-O"_s, u"never"_s, both()[i]}));
        EXPECT_EQ(tasks[i]->title(), u"Running SHNTool Strip"_s);
    }
    EXPECT_NE(tasks[0]->results(), tasks[1]->results());
}

TEST_F(SHNtoolTabTest, PadMakesATaskAFile)
{
    tab.outputFormatMatrix->selectTitle(C::WAV);
    answerFolder();
    fill({u"b.flac"_s, u"a.wav"_s});
    press(C::PAD);
    const auto tasks = queued<SHNToolPadTask>();
    ASSERT_EQ(tasks.size(), 2U);
    EXPECT_EQ(tasks[1]->arguments(),
              QStringList({u"pad"_s, u"-d"_s, u"/out"_s, u"-o"_s, u"wav"_s, u"-O"_s, u"never"_s, pathOf(u"b.flac"_s)}));
    EXPECT_EQ(tasks[1]->fileName(), pathOf(u"b.flac"_s));
    EXPECT_EQ(tasks[1]->title(), u"Running SHNTool Pad"_s);
    EXPECT_EQ(tasks[1]->textField()->stringValue(), u"b.flac"_s);
}

TEST_F(SHNtoolTabTest, SplitTakesTheFirstFileAloneAndForgetsTheRest)
{
    const QString points = file(u"show.cue"_s, "TRACK 01\nTITLE \"Intro\"\n");
    panels_.answerOpenPanel(QStringList{points});
    answerFolder();
    const auto task = taskOf<SHNToolSplitTask>(C::SPLIT);
    ASSERT_TRUE(task);
    EXPECT_EQ(task->arguments(),
              QStringList({u"split"_s, u"-f"_s, points, u"-o"_s, u"flac"_s, u"-d"_s, u"/out"_s, pathOf(u"a.wav"_s)}));
    EXPECT_EQ(task->title(), u"a.wav"_s);
    EXPECT_EQ(task->outputPath(), u"/out"_s);
    EXPECT_EQ(task->trackTitleMap(), TrackTitles({{u"split-track01.flac"_s, u"01 Intro.flac"_s}}));
    const auto request = panels_.openRequests().front();
    EXPECT_EQ(request.title, u"Choose file with split point data"_s);
    EXPECT_EQ(request.fileTypes, QStringList({u"cue"_s, u"txt"_s}));
    EXPECT_TRUE(request.canChooseFiles);
    EXPECT_FALSE(request.canChooseDirectories || request.allowsMultipleSelection ||
                 request.treatsFilePackagesAsDirectories);
}

TEST_F(SHNtoolTabTest, SplitReadsUtf16ByItsMark)
{
    const QByteArray text = QByteArray::fromHex("fffe") + QByteArray("T\0R\0A\0C\0K\0\n\0T\0I\0T\0L\0E\0 \0\xe9\0", 26);
    panels_.answerOpenPanel(QStringList{file(u"show.cue"_s, text)});
    answerFolder();
    const auto task = taskOf<SHNToolSplitTask>(C::SPLIT);
    ASSERT_TRUE(task);
    EXPECT_EQ(task->trackTitleMap().value(u"split-track01.flac"_s), u"01 é.flac"_s);
}

TEST_F(SHNtoolTabTest, UnreadableSplitPointsQueueNothingAndAreToldOnThePage)
{
    panels_.answerOpenPanel(QStringList{file(u"show.cue"_s, "TITLE \xe9t\xe9\n")});
    answerFolder();
    fill({u"a.wav"_s});
    const LogCapture log;
    press(C::SPLIT);
    EXPECT_EQ(queue().taskCount(), 0);
    EXPECT_TRUE(tab.fileNames().isEmpty());
    EXPECT_EQ(log.count(u"Trying to open as unicode..."_s), 1);
    EXPECT_EQ(log.count(u"Last hope: opening using NSASCIIStringEncoding..."_s), 1);
    EXPECT_EQ(log.count(u"Could not open file..."_s + pathOf(u"show.cue"_s) + u"  "_s), 1);
    EXPECT_TRUE(tab.aboutCommand().startsWith(u"show.cue is not UTF-8; save it as UTF-8\n"_s));
    fill({u"a.wav"_s});
    EXPECT_FALSE(tab.aboutCommand().contains(u"UTF-8"_s)) << "until the next files come";
}

TEST_F(SHNtoolTabTest, ProblemOfSplitPointsStandsWithSplitAloneUntilItIsPressedAgain)
{
    const auto aboutWith = [this](const QString& command) {
        tab.shntoolCommandMatrix->selectTitle(command);
        return tab.aboutCommand();
    };
    panels_.answerOpenPanel(QStringList{pathOf(u"missing.cue"_s)});
    answerFolder();
    fill({u"a.wav"_s});
    press(C::SPLIT);
    EXPECT_TRUE(aboutWith(C::SPLIT).startsWith(u"missing.cue cannot be read: No such file or directory\n"_s));
    EXPECT_FALSE(aboutWith(C::LEN).contains(u"missing.cue"_s));
    tab.fileList()->addSorted({u"/a.wav"_s});
    panels_.answerOpenPanel(std::nullopt);
    press(C::SPLIT);
    EXPECT_FALSE(tab.aboutCommand().contains(u"missing.cue"_s));
}

TEST_F(SHNtoolTabTest, PanelThatThrowsChoosesNoSplitPoints)
{
    struct ThrowingPanels : ScriptedPanels
    {
        std::optional<QStringList> openPanel(const OpenPanelRequest&) override
        {
            throw PlatformException(u"GenericException"_s, u"no panel"_s);
        }
    } panels;
    EXPECT_EQ(tab.chooseSplitPointFile(), std::nullopt);
    fill({u"a.wav"_s});
    press(C::SPLIT);
    EXPECT_EQ(queue().taskCount(), 0);
    EXPECT_TRUE(tab.fileNames().isEmpty());
}

TEST_F(SHNtoolTabTest, NamesButtonLoadsTheWindowOnceAndShowsIt)
{
    const auto controllerOfNames = std::make_shared<TrackNameInputController>();
    tab.namesButton->click(); // there is none yet
    tab.setTrackNameWindow(controllerOfNames);
    tab.namesButton->click();
    const auto window = controllerOfNames->window();
    ASSERT_TRUE(window);
    EXPECT_TRUE(window->isVisible());
    controllerOfNames->inputCancel(nullptr);
    EXPECT_FALSE(window->isVisible());
    tab.showNamesWindow(nullptr);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(controllerOfNames->window(), window);
}

TEST_F(SHNtoolTabTest, DismissedPanelsQueueNothingAndLoseTheList)
{
    for (const QString& command : {C::JOIN, C::TRIM, C::STRIP, C::PAD}) {
        fill({u"a.wav"_s});
        panels_.answerOpenPanel(std::nullopt);
        press(command);
        EXPECT_TRUE(tab.fileNames().isEmpty()) << command.toStdString();
    }
    fill({u"a.wav"_s});
    panels_.answerSavePanel(std::nullopt);
    press(C::CUE);
    EXPECT_TRUE(tab.fileNames().isEmpty());
    fill({u"a.wav"_s});
    panels_.answerOpenPanel(std::nullopt); // the split points: no folder is asked for then
    press(C::SPLIT);
    fill({u"a.wav"_s});
    panels_.answerOpenPanel(QStringList{pathOf(u"x.cue"_s)});
    panels_.answerOpenPanel(std::nullopt);
    press(C::SPLIT);
    EXPECT_TRUE(tab.fileNames().isEmpty());
    EXPECT_EQ(queue().taskCount(), 0);
}

TEST_F(SHNtoolTabTest, CommandsShowWhatTheyRead)
{
    const auto shown = [this](const QString& command) {
        tab.shntoolCommandMatrix->selectTitle(command);
        tab.displayRelevantOptions();
        return hidden();
    };
    const std::vector<bool> nothing{true, true, true, true}, formats{false, false, true, true};
    EXPECT_EQ(shown(C::LEN), std::vector<bool>({true, true, false, true}));
    tab.shnLenMatrix->clickCell(1, 0);
    EXPECT_EQ(hidden(), std::vector<bool>({true, true, false, false}));
    tab.shnLenMatrix->clickCell(2, 0);
    EXPECT_EQ(hidden(), std::vector<bool>({true, true, false, false}));
    tab.shnLenMatrix->clickCell(0, 0);
    EXPECT_EQ(hidden(), std::vector<bool>({true, true, false, true}));
    for (const QString& command : {C::JOIN, C::SPLIT, C::TRIM})
        EXPECT_EQ(shown(command), formats) << command.toStdString();
    for (const QString& command : {C::INFO, C::CMP, C::CUE, C::PAD, C::STRIP})
        EXPECT_EQ(shown(command), nothing) << command.toStdString();
}

TEST_F(SHNtoolTabTest, LongestNameGivesTheWidth)
{
    EXPECT_EQ(SHNtoolTab::getMaxTrackNamesLength({}), 0);
    EXPECT_EQ(SHNtoolTab::getMaxTrackNamesLength({u"a"_s, u"abc"_s, u"ab"_s}), 3);
}

TEST_F(SHNtoolTabTest, NamesComeFromWhoeverPostsThem)
{
    post(QStringList{u"one"_s});
    EXPECT_EQ(tab.names, QStringList{u"one"_s});
    post(QStringList());
    EXPECT_FALSE(tab.names);
}

TEST_F(SHNtoolTabTest, LenInItsPlainForm)
{
    const auto tasks = measured(C::NORMAL_LEN_OUTPUT, {u"b.flac"_s, u"a.wav"_s});
    ASSERT_EQ(tasks.size(), 1U);
    EXPECT_EQ(tasks[0]->arguments(), QStringList({u"len"_s}) + both());
    EXPECT_EQ(tasks[0]->type(), C::NORMAL_LEN_OUTPUT);
    EXPECT_FALSE(tasks[0]->trackNames());
    EXPECT_EQ(tasks[0]->maxTrackNameLength(), 0);
    EXPECT_EQ(tab.names, QStringList({u"a.wav"_s, u"b.flac"_s})) << "they stay for the next report";
}

TEST_F(SHNtoolTabTest, LenOfASetGetsTheNames)
{
    post(QStringList{u"Introduction"_s, u"Jam"_s, u"third"_s});
    const auto tasks = measured(C::LEN_BY_FILESET, {u"b.flac"_s, u"a.wav"_s});
    ASSERT_EQ(tasks.size(), 1U);
    EXPECT_EQ(tasks[0]->trackNames(), QStringList({u"Introduction"_s, u"Jam"_s, u"third"_s}));
    EXPECT_EQ(tasks[0]->maxTrackNameLength(), 12);
    EXPECT_FALSE(tasks[0]->discNumber());
}

TEST_F(SHNtoolTabTest, NamesThatAreTooFewGetOneTooMany)
{
    post(QStringList{u"Intro"_s});
    measured(C::LEN_BY_FILESET, {u"a.wav"_s, u"b.wav"_s, u"c.wav"_s});
    EXPECT_EQ(tab.names, QStringList({u"Intro"_s, u"a.wav"_s, u"b.wav"_s, u"c.wav"_s}));
}

TEST_F(SHNtoolTabTest, LenByDiscMakesATaskADiscInOneReport)
{
    post(QStringList{u"A"_s, u"B"_s, u"C"_s});
    const auto tasks = measured(C::LEN_BY_DISC, {u"d1t1.wav"_s, u"d2t1.wav"_s, u"d1t2.wav"_s});
    ASSERT_EQ(tasks.size(), 2U);
    EXPECT_EQ(tasks[0]->arguments(), QStringList({u"len"_s, pathOf(u"d1t1.wav"_s), pathOf(u"d1t2.wav"_s)}));
    EXPECT_EQ(tasks[0]->discNumber(), u"1"_s);
    EXPECT_EQ(tasks[0]->trackNames(), QStringList({u"A"_s, u"B"_s}));
    EXPECT_EQ(tasks[0]->maxTrackNameLength(), 1);
    EXPECT_EQ(tasks[1]->discNumber(), u"2"_s);
    EXPECT_EQ(tasks[1]->trackNames(), QStringList({u"C"_s}));
    EXPECT_EQ(tasks[0]->results(), tasks[1]->results());
    EXPECT_EQ(tasks[0]->results()->tasksInSet().size(), 2U);
}

TEST_F(SHNtoolTabTest, ARowThatIsLeftOutKeepsItsNameAndSoDoTheOthers)
{
    tab.shntoolCommandMatrix->selectTitle(C::LEN);
    tab.shnLenMatrix->selectTitle(C::LEN_BY_FILESET);
    fill({u"a.wav"_s, u"b.wav"_s, u"c.wav"_s});
    post(QStringList{u"A"_s, u"B"_s, u"C"_s});
    tab.executeCommandWithout({1});
    EXPECT_EQ(queued<SHNToolLenTask>().at(0)->trackNames(), QStringList({u"A"_s, u"C"_s}));
    EXPECT_EQ(tab.fileNames().copy(), QStringList{pathOf(u"b.wav"_s)});
    tab.executeCommandWithout({});
    EXPECT_EQ(queued<SHNToolLenTask>().at(1)->trackNames(), QStringList{u"B"_s});
}

TEST_F(SHNtoolTabTest, ARowWithoutANameThatIsLeftOutGetsItsFilesName)
{
    tab.shntoolCommandMatrix->selectTitle(C::LEN);
    tab.shnLenMatrix->selectTitle(C::LEN_BY_FILESET);
    fill({u"a.wav"_s, u"b.wav"_s, u"c.wav"_s});
    post(QStringList{u"A"_s, u"B"_s});
    tab.executeCommandWithout({2});
    EXPECT_EQ(queued<SHNToolLenTask>().at(0)->trackNames(), QStringList({u"A"_s, u"B"_s}));
    EXPECT_FALSE(tab.names);
}

TEST_F(SHNtoolTabTest, APressThatLeavesEveryRowOutLeavesTheNames)
{
    fill({u"a.wav"_s});
    post(QStringList{u"A"_s, u"B"_s});
    tab.executeCommandWithout({0});
    EXPECT_EQ(tab.names, QStringList({u"A"_s, u"B"_s}));
}

TEST_F(SHNtoolTabTest, ThePlanCountsTheRowsThatAreNotLeftOut)
{
    fill({u"a.wav"_s, u"b.flac"_s});
    tab.shntoolCommandMatrix->selectTitle(C::LEN);
    EXPECT_EQ(tab.workPlanWithout({0}).words, u"A report on the lengths of 1 FLAC file"_s);
    EXPECT_EQ(tab.workPlanWithout({0}).items.size(), 1U);
}

TEST_F(SHNtoolTabTest, PlansWhatEachCommandWrites)
{
    fill({u"a.wav"_s, u"b.flac"_s});
    tab.setDestination(u"/out"_s);
    const auto planOf = [this](const QString& command) {
        tab.shntoolCommandMatrix->selectTitle(command);
        return tab.workPlan();
    };
    const WorkPlan joined = planOf(C::JOIN);
    EXPECT_EQ(joined.words, u"2 FLAC and WAV files joined into one, to FLAC"_s);
    EXPECT_EQ(joined.items.at(1).outputs, QStringList({u"/out/joined.flac"_s}));
    EXPECT_TRUE(joined.items.at(1).sharesOutput);
    EXPECT_EQ(joined.tools, QStringList({u"shntool"_s, u"flac"_s}));
    EXPECT_EQ(planOf(C::PAD).items.at(0).outputs, QStringList({u"/out/a-padded.flac"_s}));
    EXPECT_EQ(planOf(C::SPLIT).items.size(), 1U);
    EXPECT_FALSE(planOf(C::LEN).needsFolder);
    EXPECT_EQ(tab.outlets().size(), 5U);
}
