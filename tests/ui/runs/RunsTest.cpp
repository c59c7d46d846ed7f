#include "ui/runs/RunDesk.h"

#include "checksum/ChecksumTab.h"
#include "engine/ZOLTTask.h"
#include "shell/Constants.h"
#include "shntool/SHNtoolTab.h"
#include "ui/ViewChoices.h"
#include "ui/WindowFixture.h"
#include "ui/reports/ReportPane.h"
#include "ui/runs/RunFoot.h"
#include "ui/runs/RunTexts.h"

#include <QComboBox>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTreeView>

namespace zolt::test {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::HasSubstr;

class RunsTest : public WindowTest
{
protected:
    HistoryWindow& history() { return program_.runDesk().history(); }
    QTreeView& rows() { return *history().findChild<QTreeView*>(u"rowsView"_s); }
    RunFoot& foot() { return window().runFoot(); }
    RunRecord& record() { return program_.program().record(); }
    void press(const char* name) { QTest::mouseClick(&widget<QPushButton>(name), Qt::LeftButton); }

    /// A run of two files; the tool fails on the one named bad.
    void runTwo()
    {
        tool(u"flac"_s, "case \"$*\" in *bad*) echo 'ERROR: it is broken'; exit 1;; esac\n");
        add({file(u"bad.flac"_s), file(u"good.flac"_s)});
        const std::size_t before = record().runs().size();
        press("commandButton");
        ASSERT_TRUE(runUntil([&] { return record().runs().size() > before && !record().isRunning(); }));
        runPosted();
    }
};

TEST_F(RunsTest, TheFootKeepsWhatBecameOfTheLastRun)
{
    const int height = foot().height();
    EXPECT_EQ(foot().text(), QString());
    runTwo();
    EXPECT_THAT(foot().text().toStdString(), testing::StartsWith("1 OK, 1 failed, 0:0"));
    EXPECT_TRUE(widget<QPushButton>("footShowButton").isVisible());
    EXPECT_TRUE(widget<QPushButton>("footRetryButton").isVisible());
    EXPECT_FALSE(widget<QPushButton>("footQueueButton").isVisible());
    EXPECT_EQ(foot().height(), height);
}

TEST_F(RunsTest, WhileARunIsOnTheFootShowsTheQueue)
{
    queue().maxThreadsChanged({QString(), nullptr, 0});
    const auto task = ZOLTTask::initWithQueue(&queue());
    queue().addTask(task);
    EXPECT_TRUE(runUntil([this] { return foot().text().startsWith(u"Queue: 0 of 1"); }));
    queue().panel()->close();
    runPosted();
    press("footQueueButton");
    runPosted();
    EXPECT_TRUE(windowNamed<QWidget>("StatusQueue").isVisible());
    queue().withdrawTask(task);
}

TEST_F(RunsTest, RetryPutsTheFailedFilesBackIntoTheirListInFront)
{
    runTwo();
    EXPECT_TRUE(tab().fileNames().isEmpty());
    program_.selectTab(aboutTab());
    runPosted();
    QTest::mouseClick(window().findChild<QPushButton*>(u"footRetryButton"_s), Qt::LeftButton);
    EXPECT_TRUE(listBecomes(1));
    EXPECT_THAT(tab().fileNames().copy(), ElementsAre(pathOf(u"bad.flac"_s)));
    EXPECT_EQ(controller().tabView->selectedIndex(), 0);
    QTest::mouseClick(window().findChild<QPushButton*>(u"footRetryButton"_s), Qt::LeftButton);
    runPosted();
    EXPECT_EQ(tab().fileNames().count(), 1); // it is there already
}

TEST_F(RunsTest, WhereNothingFailedNothingIsToBeRetried)
{
    tool(u"flac"_s, "exit 0\n");
    add({file(u"good.flac"_s)});
    press("commandButton");
    ASSERT_TRUE(runUntil([&] { return record().current() && !record().isRunning(); }));
    runPosted();
    EXPECT_TRUE(widget<QPushButton>("footShowButton").isVisible());
    EXPECT_FALSE(widget<QPushButton>("footRetryButton").isVisible());
    history().showLatest(RunFilter::All);
    EXPECT_FALSE(history().findChild<QPushButton*>(u"retryButton"_s)->isEnabled());
}

TEST_F(RunsTest, RetryGoesToTheTabThatQueuedTheFileWhicheverIsInFront)
{
    tool(u"flac"_s, "echo 'ERROR: it is broken'; exit 1\n");
    auto& checksums = program_.program().tab<ChecksumTab>();
    checksums.addFiles({file(u"bad.flac"_s)});
    checksums.waitForFiles();
    program_.selectTab(0);
    checksums.executeCommandWithout({}); // "Test" of a tab that is not in front
    ASSERT_TRUE(runUntil([&] { return record().current() && !record().isRunning(); }));
    press("footRetryButton");
    runPosted();
    EXPECT_THAT(checksums.fileNames().copy(), ElementsAre(pathOf(u"bad.flac"_s)));
    EXPECT_TRUE(tab().fileNames().isEmpty());
    EXPECT_EQ(controller().selectedTabViewItem()->label(), Constants::CHECKSUM);
}

TEST_F(RunsTest, RetryOfATaskOnSeveralFilesBringsAllOfThemBack)
{
    tool(u"shntool"_s, "echo 'shntool [join]: error: it is broken'; exit 1\n");
    auto& shntool = program_.program().tab<SHNtoolTab>();
    const QStringList files{file(u"1.wav"_s), file(u"2.wav"_s)};
    shntool.addFiles(files);
    shntool.waitForFiles();
    shntool.shntoolCommandMatrix->selectTitle(Constants::JOIN);
    shntool.setDestination(folder_.path());
    shntool.executeCommandWithout({});
    ASSERT_TRUE(runUntil([&] { return record().current() && !record().isRunning(); }));
    EXPECT_TRUE(shntool.fileNames().isEmpty());
    program_.runDesk().retry(*record().current());
    runPosted();
    EXPECT_EQ(shntool.fileNames().copy(), files);
}

TEST_F(RunsTest, ANameThatIsNotUtf8IsReadableEverywhereAndComesBackAsItIs)
{
    tool(u"flac"_s, "printf '%s\\n' \"ERROR: $2 is broken\"; exit 1\n");
    const QString path = file(nameOfBytes("s\xe4tze/") + oldName());
    add({path});
    press("commandButton");
    ASSERT_TRUE(runUntil([&] { return record().current() && !record().isRunning(); }));
    runPosted();
    EXPECT_EQ(record().current()->rows[0].source, path);
    const auto readable = [](const QString& text) { return text.contains(u"sätze"_s) && readableName(text) == text; };
    EXPECT_TRUE(readable(queue().panelArray()[0]->textField()->stringValue()));
    EXPECT_TRUE(readable(program_.interfaces().windows().back()->windowTitle()));
    program_.runDesk().showLastRun();
    for (const int column : {0, 3})
        EXPECT_TRUE(readable(rows().model()->index(0, column).data().toString())) << column;
    EXPECT_TRUE(readable(rows().model()->index(0, 0).data(Qt::ToolTipRole).toString()));
    press("footRetryButton");
    EXPECT_TRUE(listBecomes(1));
    EXPECT_EQ(tab().fileNames().at(0), path);
}

TEST_F(RunsTest, AToolThatWasKilledIsTheCauseInWords)
{
    tool(u"flac"_s, "kill -SEGV $$\n");
    add({file(u"a.flac"_s)});
    press("commandButton");
    ASSERT_TRUE(runUntil([&] { return record().current() && !record().isRunning(); }));
    runPosted();
    const auto& cause = *program_.interfaces().windows().back()->findChild<QLabel*>(u"causeLabel"_s);
    EXPECT_TRUE(cause.isVisible());
    EXPECT_EQ(cause.text(), u"The tool crashed (Segmentation fault)."_s);
    EXPECT_EQ(record().current()->rows[0].verdict.cause, cause.text());
}

TEST_F(RunsTest, ShowReportBringsUpTheWindowsOfTheRunOrTheGatheredOnes)
{
    runTwo();
    QWidget& report = *program_.interfaces().windows().back();
    window().present();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    program_.runDesk().showReports();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&report));
    EXPECT_FALSE(history().isVisible());

    viewChoices::setGathersReports(true);
    program_.runDesk().showReports();
    EXPECT_TRUE(history().isVisible());
    EXPECT_EQ(history().findChild<QComboBox*>(u"filterBox"_s)->currentText(), u"with a report"_s);
}

TEST_F(RunsTest, ShowReportListsTheReportsWhoseWindowsWereClosed)
{
    runTwo();
    program_.interfaces().closeReports();
    program_.runDesk().showReports();
    EXPECT_TRUE(history().isVisible());
}

TEST_F(RunsTest, ShowListsTheReportsOfTheLastRun)
{
    runTwo();
    press("footShowButton");
    EXPECT_TRUE(history().isVisible());
    ASSERT_EQ(rows().model()->rowCount(), 1);
    EXPECT_EQ(rows().model()->index(0, 0).data().toString(), u"bad.flac"_s);
    EXPECT_TRUE(history().findChild<ReportPane*>(u"pane"_s)->report().contains(u"it is broken"));
}

TEST_F(RunsTest, TheHistoryListsRunsTheNewestFirstAndFilters)
{
    runTwo();
    runTwo();
    window().findChild<QAction*>(u"historyAction"_s)->trigger();
    ASSERT_TRUE(history().isVisible());
    EXPECT_EQ(history().findChild<QComboBox*>(u"runBox"_s)->count(), 2);
    EXPECT_EQ(history().run(), record().runs().back().get());
    EXPECT_EQ(rows().model()->rowCount(), 2);
    auto& filter = *history().findChild<QComboBox*>(u"filterBox"_s);
    filter.setCurrentIndex(1);
    EXPECT_EQ(rows().model()->rowCount(), 1);
    history().findChild<QComboBox*>(u"runBox"_s)->setCurrentIndex(1);
    EXPECT_EQ(history().run(), record().runs().front().get());
}

TEST_F(RunsTest, TheChosenRunStaysChosenWhenAnotherComes)
{
    runTwo();
    runTwo();
    history().showLatest(RunFilter::All);
    history().findChild<QComboBox*>(u"runBox"_s)->setCurrentIndex(1);
    const auto* const chosen = history().run();
    runTwo();
    ASSERT_TRUE(runUntil([this] { return history().findChild<QComboBox*>(u"runBox"_s)->count() == 3; }));
    EXPECT_EQ(history().run(), chosen);
    EXPECT_EQ(rows().model()->rowCount(), 2);
}

TEST_F(RunsTest, AReportThatIsBeingReadStandsStillWhileTheRunGoesOn)
{
    tool(u"flac"_s, "seq 60; echo 'ERROR: it is broken'; exit 1\n");
    add({file(u"bad.flac"_s)});
    press("commandButton");
    ASSERT_TRUE(runUntil([&] { return record().current() && !record().isRunning(); }));
    runPosted();
    history().resize(600, 300);
    history().showLatest(RunFilter::All);
    auto& text = *history().findChild<QPlainTextEdit*>(u"textField"_s);
    ASSERT_TRUE(runUntil([&] { return text.verticalScrollBar()->maximum() > 5; }));
    text.verticalScrollBar()->setValue(3);
    history().showLatest(RunFilter::All); // as every look at the run
    EXPECT_EQ(text.verticalScrollBar()->value(), 3);
}

TEST_F(RunsTest, GatheredReportsComeWithTheFirstOfARunAndThenLeaveTheListToItsReader)
{
    viewChoices::setGathersReports(true);
    runTwo();
    ASSERT_TRUE(history().isVisible());
    EXPECT_EQ(openReports(), 0) << "no window of its own";
    auto& filter = *history().findChild<QComboBox*>(u"filterBox"_s);
    EXPECT_EQ(filter.currentText(), u"with a report"_s);
    ASSERT_TRUE(runUntil([this] { return rows().model()->rowCount() == 1; }));
    filter.setCurrentIndex(0);
    const auto report = [this] {
        queue().showOutputWindowTitle(u"one more"_s, u"x"_s);
        runPosted();
    };
    report();
    EXPECT_EQ(filter.currentText(), u"with a report"_s) << "the first behind a run's end";
    filter.setCurrentIndex(0);
    report();
    EXPECT_EQ(filter.currentIndex(), 0);
    runTwo();
    EXPECT_EQ(record().runs().size(), 2U);
    EXPECT_EQ(filter.currentIndex(), 0);
}

TEST_F(RunsTest, ARunIsSavedAsTextOrAsATable)
{
    runTwo();
    history().showLatest(RunFilter::All);
    const auto exported = [this](const QString& name) {
        panels_.answerSavePanel(pathOf(name));
        QTest::mouseClick(history().findChild<QPushButton*>(u"exportButton"_s), Qt::LeftButton);
        QFile saved(pathOf(name));
        EXPECT_TRUE(saved.open(QIODevice::ReadOnly));
        return saved.readAll().toStdString();
    };
    const std::string table = exported(u"run.csv"_s);
    EXPECT_THAT(table, HasSubstr("\"name\",\"outcome\""));
    EXPECT_THAT(table, HasSubstr("\"bad.flac\",\"failed\""));
    const std::string text = exported(u"run.txt"_s);
    EXPECT_THAT(text, HasSubstr("it is broken"));
    EXPECT_THAT(text, HasSubstr("1 complete, 1 failed, 0 canceled"));
}

TEST_F(RunsTest, AllReportsAreSavedInOneText)
{
    runTwo();
    panels_.answerSavePanel(pathOf(u"all.txt"_s));
    window().findChild<QAction*>(u"saveReportsAction"_s)->trigger();
    QFile saved(pathOf(u"all.txt"_s));
    ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
    EXPECT_THAT(saved.readAll().toStdString(), HasSubstr("bad.flac\n\n"));
}

TEST_F(RunsTest, AllReportWindowsAreClosedAtOnce)
{
    runTwo();
    ASSERT_EQ(openReports(), 1);
    window().findChild<QAction*>(u"closeReportsAction"_s)->trigger();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(openReports(), 0);
    EXPECT_EQ(queue().outputWindows().size(), 1U);
}

TEST_F(RunsTest, AReportsOwnWindowShowsTheFileInItsFolder)
{
    runTwo();
    const auto folderButton = [this] {
        return program_.interfaces().windows().back()->findChild<QPushButton*>(u"folderButton"_s);
    };
    EXPECT_TRUE(folderButton()->isEnabled());
    queue().showOutputWindowTitle(u"about no file"_s, u"Output"_s);
    runPosted();
    EXPECT_FALSE(folderButton()->isEnabled());
}

TEST_F(RunsTest, TheHistorysListKeepsItsWidthWhicheverRowIsShown)
{
    runTwo();
    history().showLatest(RunFilter::All);
    history().resize(683, 340);
    ASSERT_TRUE(runUntil([this] { return history().width() == 683; }));
    EXPECT_GT(rows().width(), 240);
    const auto top = [this] { return history().findChild<QWidget*>(u"findButton"_s)->y(); };
    for (int wide = 683; wide <= 1100; wide += 20) {
        history().resize(wide, 340);
        rows().setCurrentIndex(rows().model()->index(1, 0));
        runPosted();
        const int width = rows().width(), place = top();
        rows().setCurrentIndex(rows().model()->index(0, 0));
        runPosted();
        EXPECT_EQ(rows().width(), width) << wide;
        EXPECT_GE(top(), place) << wide;
        EXPECT_LT(top(), place + 30) << wide; // the cause takes a line, the rows of buttons stay
    }
}

TEST_F(RunsTest, AHistoryWithoutARunSaysSo)
{
    history().showLatest(RunFilter::All);
    EXPECT_EQ(history().findChild<QComboBox*>(u"runBox"_s)->currentIndex(), -1);
    EXPECT_EQ(history().findChild<QComboBox*>(u"runBox"_s)->placeholderText(), u"No run yet"_s);
}

TEST(RunRowsModelTest, ListsTheRowsOfOneOutcomeAndSaysItInWords)
{
    zolt::Run run;
    run.rows.push_back({.title = u"good"_s, .outcome = Outcome::Complete});
    run.rows.push_back({.title = u"bad list"_s,
                        .outcome = Outcome::Complete,
                        .report = u"a : FAILED\n"_s,
                        .verdict = verdictOf(u"a : FAILED\n"_s, {}),
                        .failsByReport = true});
    run.rows.push_back({.title = u"stopped"_s, .outcome = Outcome::Canceled});
    RunRowsModel model;
    const auto listed = [&](RunFilter filter) {
        QStringList rows;
        model.show(&run, filter);
        for (int row = 0; row < model.rowCount(); ++row)
            rows += model.index(row, 0).data().toString() + u": "_s + model.index(row, 1).data().toString();
        return rows;
    };
    EXPECT_THAT(listed(RunFilter::All),
                ElementsAre(u"good: complete"_s, u"bad list: 1 failed"_s, u"stopped: canceled"_s));
    EXPECT_THAT(listed(RunFilter::Failed), ElementsAre(u"bad list: 1 failed"_s));
    EXPECT_THAT(listed(RunFilter::Reports), ElementsAre(u"bad list: 1 failed"_s));
    EXPECT_THAT(listed(RunFilter::Canceled), ElementsAre(u"stopped: canceled"_s));
}

TEST(RunTextsTest, WhatIsNoneIsLeftOut)
{
    zolt::Run run;
    run.failed = 1;
    run.rows.push_back({.outcome = Outcome::Failed});
    EXPECT_EQ(shortWords(run), u"1 failed, 0:00"_s);
}

TEST(RunTextsTest, ATableQuotesWhatNeedsIt)
{
    zolt::Run run;
    run.rows.push_back({.title = u"a \"b\", c"_s, .outcome = Outcome::Complete});
    EXPECT_THAT(runAsCsv(run).toStdString(), HasSubstr("\"a \"\"b\"\", c\",\"complete\""));
}

} // namespace
} // namespace zolt::test
