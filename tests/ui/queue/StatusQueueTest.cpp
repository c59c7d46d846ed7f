#include "ui/queue/StatusQueueWindow.h"

#include "engine/ZOLTTask.h"
#include "ui/Pictures.h"
#include "ui/ViewChoices.h"
#include "ui/WindowFixture.h"
#include "ui/queue/QueueBar.h"
#include "ui/queue/QueueCommands.h"
#include "ui/queue/StatusQueueDelegate.h"
#include "ui/queue/StatusQueueModel.h"
#include "ui/queue/StatusQueueView.h"

#include <QClipboard>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMenu>
#include <QProgressBar>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTimer>

namespace zolt::test {
namespace {

using namespace Qt::StringLiterals;

/// A task that ends when a test says so.
class HandTask : public ZOLTTask
{
public:
    static std::shared_ptr<HandTask> make(ZOLTTaskQueue& queue, const QString& name)
    {
        std::shared_ptr<HandTask> task(new HandTask);
        task->setUpWithQueue(&queue);
        task->showTitle(name);
        return task;
    }
    void startTask() override
    {
        ++starts;
        ZOLTTask::startTask();
    }
    void stopTask(Sender sender) override
    {
        ZOLTTask::stopTask(sender);
        if (atEnd) atEnd();
        reportCompleted();
    }
    std::function<void()> atEnd;
    int starts = 0;
    void fail(const QString& text)
    {
        appendResults(text);
        setError(true);
        stopTask(nullptr);
    }
};

class StatusQueueTest : public WindowTest
{
protected:
    StatusQueueWindow& panel() { return windowNamed<StatusQueueWindow>("StatusQueue"); }
    StatusQueueView& view() { return *panel().findChild<StatusQueueView*>(); }
    std::shared_ptr<HandTask> queued(const QString& name)
    {
        auto task = HandTask::make(queue(), name);
        queue().addTask(task);
        return task;
    }
    bool rowsBecome(int rows)
    {
        return runUntil([&] { return view().model()->rowCount() == rows; });
    }
    bool titleBecomes(const QString& title)
    {
        return runUntil([&] { return panel().windowTitle() == title; });
    }
    QRect stopButtonOf(int row)
    {
        StatusQueueCell cell;
        queue().tableViewWillDisplayCellForTableColumnRow(cell, row);
        const QRect place = view().visualRect(view().model()->index(row, 0));
        return StatusQueueDelegate::places(cell, place, view().font()).cancelButton.toRect();
    }
    /// Chooses the entry of the context menu that the next event brings up, and tells whether it was enabled.
    std::shared_ptr<bool> chooseInMenu(const QString& text)
    {
        auto enabled = std::make_shared<bool>(false);
        QTimer::singleShot(20, &panel(), [text, enabled] {
            auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_NE(menu, nullptr);
            for (QAction* action : menu->actions()) {
                if (action->text().remove(u'&') != text) continue;
                *enabled = action->isEnabled();
                menu->setActiveAction(action);
                if (action->isEnabled()) return QTest::keyClick(menu, Qt::Key_Return);
            }
            menu->close();
        });
        return enabled;
    }
    void menuOnRow(int row)
    {
        Q_EMIT view().customContextMenuRequested(view().visualRect(view().model()->index(row, 0)).center());
    }
};

TEST_F(StatusQueueTest, AddingATaskShowsThePanelWithItsRow)
{
    EXPECT_FALSE(panel().isVisible());
    queued(u"a.flac"_s);
    EXPECT_TRUE(rowsBecome(1));
    EXPECT_TRUE(panel().isVisible());
    EXPECT_TRUE(titleBecomes(u"Queue: 0 of 1, 0 %"_s));
    EXPECT_EQ(view().model()->index(0, 0).data().toString(), u"a.flac: Working..."_s);
}

TEST_F(StatusQueueTest, ThePanelTakesTheKeyboardOnlyWhenItComesUp)
{
    queued(u"a.flac"_s);
    ASSERT_TRUE(runUntil([this] { return panel().isActiveWindow(); }));
    window().activateWindow();
    ASSERT_TRUE(runUntil([this] { return window().isActiveWindow(); }));
    queued(u"b.flac"_s);
    ASSERT_TRUE(rowsBecome(2));
    QTest::qWait(10);
    EXPECT_TRUE(window().isActiveWindow());
}

TEST_F(StatusQueueTest, WhoAsksForThePanelGetsItInFrontWithTheKeyboard)
{
    viewChoices::setKeepsQueueInFront(false);
    queued(u"a.flac"_s);
    ASSERT_TRUE(runUntil([this] { return panel().isActiveWindow(); }));
    window().activateWindow();
    ASSERT_TRUE(runUntil([this] { return window().isActiveWindow(); }));
    window().findChild<QAction*>(u"queueAction"_s)->trigger();
    EXPECT_TRUE(runUntil([this] { return panel().isActiveWindow(); }));
}

TEST_F(StatusQueueTest, NotKeptInFrontAClosedPanelComesBackForACommandAlone)
{
    viewChoices::setKeepsQueueInFront(false);
    queue().maxThreadsChanged({QString(), nullptr, 1});
    const auto first = queued(u"a.flac"_s), second = queued(u"b.flac"_s);
    ASSERT_TRUE(rowsBecome(2));
    QTest::keyClick(&panel(), Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(panel().isVisible());
    first->stopTask(nullptr); // starts the second
    runPosted();
    EXPECT_TRUE(second->isActive());
    EXPECT_FALSE(panel().isVisible());
    queued(u"c.flac"_s);
    runPosted();
    EXPECT_TRUE(panel().isVisible());
}

TEST_F(StatusQueueTest, KeptInFrontAClosedPanelComesBackWithTheNextStart)
{
    queue().maxThreadsChanged({QString(), nullptr, 1});
    const auto first = queued(u"a.flac"_s), second = queued(u"b.flac"_s);
    ASSERT_TRUE(rowsBecome(2));
    QTest::keyClick(&panel(), Qt::Key_Escape);
    ASSERT_FALSE(panel().isVisible());
    first->stopTask(nullptr);
    runPosted();
    EXPECT_TRUE(panel().isVisible());
}

TEST_F(StatusQueueTest, TheStopButtonCancelsItsTask)
{
    const auto task = queued(u"a.flac"_s);
    const auto other = queued(u"b.flac"_s);
    ASSERT_TRUE(rowsBecome(2));
    QTest::mouseClick(view().viewport(), Qt::LeftButton, {}, stopButtonOf(0).center());
    runPosted();
    EXPECT_TRUE(task->cancelled());
    EXPECT_FALSE(other->cancelled());
}

TEST_F(StatusQueueTest, AClickBesideTheStopButtonCancelsNothing)
{
    const auto task = queued(u"a.flac"_s);
    ASSERT_TRUE(rowsBecome(1));
    QTest::mouseClick(view().viewport(), Qt::LeftButton, {}, stopButtonOf(0).center() - QPoint(60, 0));
    runPosted();
    EXPECT_FALSE(task->cancelled());
}

TEST_F(StatusQueueTest, APressThatIsTakenOffTheStopButtonCancelsNothing)
{
    const auto task = queued(u"a.flac"_s);
    ASSERT_TRUE(rowsBecome(1));
    const QPoint button = stopButtonOf(0).center();
    QTest::mousePress(view().viewport(), Qt::LeftButton, {}, button);
    QTest::mouseRelease(view().viewport(), Qt::LeftButton, {}, button - QPoint(60, 0));
    runPosted();
    EXPECT_FALSE(task->cancelled());
}

TEST_F(StatusQueueTest, AWaitingRowHasNoStopButton)
{
    queue().maxThreadsChanged({QString(), nullptr, 0});
    const auto task = queued(u"a.flac"_s);
    ASSERT_TRUE(rowsBecome(1));
    QTest::mouseClick(view().viewport(), Qt::LeftButton, {}, stopButtonOf(0).center());
    runPosted();
    EXPECT_FALSE(task->cancelled());
}

TEST_F(StatusQueueTest, DeleteStopsTheSelectedTasks)
{
    const auto task = queued(u"a.flac"_s);
    ASSERT_TRUE(rowsBecome(1));
    view().selectAll();
    QTest::keyClick(&view(), Qt::Key_Delete);
    runPosted();
    EXPECT_TRUE(task->cancelled());
}

TEST_F(StatusQueueTest, CancelAllCancelsEveryTaskAndStartsNone)
{
    queue().maxThreadsChanged({QString(), nullptr, 1});
    const auto first = queued(u"a.flac"_s), second = queued(u"b.flac"_s), third = queued(u"c.flac"_s);
    ASSERT_TRUE(rowsBecome(3));
    QTest::mouseClick(panel().findChild<QPushButton*>(u"cancelAllButton"_s), Qt::LeftButton);
    EXPECT_TRUE(first->cancelled() && second->cancelled() && third->cancelled());
    EXPECT_EQ(second->starts + third->starts, 0);
    EXPECT_TRUE(runUntil([this] { return !panel().isVisible(); }));
}

TEST_F(StatusQueueTest, AFailedRowStaysUntilErrorsAreRemoved)
{
    queued(u"a.flac"_s)->fail(u"broken"_s);
    ASSERT_TRUE(rowsBecome(1));
    EXPECT_TRUE(titleBecomes(u"Queue"_s));
    EXPECT_TRUE(panel().isVisible());
    // The report takes the keyboard as it comes up, which closes a menu.
    ASSERT_TRUE(runUntil([this] { return openReports() == 1 && windowNamed<QWidget>("OutputWindow").isVisible(); }));
    ASSERT_TRUE(QTest::qWaitForWindowActive(&windowNamed<QWidget>("OutputWindow")));
    chooseInMenu(u"Remove All Errors"_s);
    menuOnRow(0);
    EXPECT_TRUE(rowsBecome(0));
    EXPECT_TRUE(runUntil([this] { return !panel().isVisible(); }));
}

TEST_F(StatusQueueTest, ShowOutputBringsTheReportBackWithoutAnother)
{
    queued(u"a.flac"_s)->fail(u"broken"_s);
    ASSERT_TRUE(rowsBecome(1));
    runPosted();
    auto& report = windowNamed<QWidget>("OutputWindow");
    report.close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ASSERT_EQ(openReports(), 0); // the closed one is forgotten
    chooseInMenu(u"Show Output"_s);
    menuOnRow(0);
    runPosted();
    EXPECT_TRUE(windowNamed<QWidget>("OutputWindow").isVisible());
    EXPECT_EQ(queue().outputWindows().size(), 1U);
}

TEST_F(StatusQueueTest, ARowWithoutAReportOffersNone)
{
    queued(u"a.flac"_s);
    const auto waiting = queued(u"b.flac"_s);
    waiting->setResults(nullptr);
    ASSERT_TRUE(rowsBecome(2));
    const auto enabled = chooseInMenu(u"Show Output"_s);
    menuOnRow(1);
    EXPECT_FALSE(*enabled);
}

TEST_F(StatusQueueTest, CopyTextCopiesTheSelectedRows)
{
    queued(u"a.flac"_s);
    queued(u"b.flac"_s);
    ASSERT_TRUE(rowsBecome(2));
    view().selectAll();
    chooseInMenu(u"Copy Text"_s);
    menuOnRow(0);
    EXPECT_EQ(QApplication::clipboard()->text(), u"a.flac: Working...\nb.flac: Working..."_s);
}

TEST_F(StatusQueueTest, RowsAreCopiedInTheirOrderWhicheverWasSelectedFirst)
{
    queued(u"a.flac"_s);
    queued(u"b.flac"_s);
    ASSERT_TRUE(rowsBecome(2));
    for (const int row : {1, 0})
        view().selectionModel()->select(view().model()->index(row, 0), QItemSelectionModel::Select);
    QTest::keyClick(&view(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), u"a.flac: Working...\nb.flac: Working..."_s);
}

TEST_F(StatusQueueTest, FromRightToLeftABarGrowsFromTheRight)
{
    const auto filled = [this](Qt::LayoutDirection direction, int x) {
        QImage picture(200, 20, QImage::Format_RGB32);
        picture.fill(Qt::white);
        QStyleOptionViewItem row;
        row.widget = &view();
        row.direction = direction;
        row.state |= QStyle::State_Selected;
        row.palette.setColor(QPalette::HighlightedText, Qt::blue);
        QPainter painter(&picture);
        drawQueueBar(painter, picture.rect(), 0.5, row);
        return picture.pixelColor(x, 10) == QColor(Qt::blue);
    };
    EXPECT_TRUE(filled(Qt::LeftToRight, 50));
    EXPECT_FALSE(filled(Qt::LeftToRight, 150));
    EXPECT_FALSE(filled(Qt::RightToLeft, 50));
    EXPECT_TRUE(filled(Qt::RightToLeft, 150));
}

TEST_F(StatusQueueTest, ManyChangesAreDrawnOnce)
{
    const auto task = queued(u"a.flac"_s);
    ASSERT_TRUE(rowsBecome(1));
    const int before = panel().refreshes();
    for (int i = 0; i <= 1000; ++i)
        task->topTextField()->setStringValue(QString::number(i));
    ASSERT_TRUE(runUntil([&] { return panel().refreshes() > before; }));
    EXPECT_EQ(panel().refreshes(), before + 1);
    EXPECT_EQ(view().model()->index(0, 0).data().toString(), u"a.flac: 1000"_s);
}

/// Counts how often a widget is painted.
class PaintCount : public QObject
{
public:
    explicit PaintCount(QWidget& widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) ++count;
        return false;
    }
    int count = 0;
};

TEST_F(StatusQueueTest, TheRunsBarIsPaintedWithTheRestAndNotAhead)
{
    const auto task = queued(u"a.flac"_s);
    ASSERT_TRUE(rowsBecome(1));
    auto& bar = *panel().findChild<QProgressBar*>();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&panel()));
    PaintCount paints(bar);
    std::optional<int> paintedAhead;
    // By the time that the event loop comes to this, nothing is painted but what did not wait for it.
    QObject::connect(
        &bar, &QProgressBar::valueChanged, &bar, [&] { paintedAhead = paints.count; }, Qt::QueuedConnection);
    QTest::qWait(0);
    paints.count = 0;
    task->progressIndicator()->setDoubleValue(50);
    ASSERT_TRUE(runUntil([&] { return paintedAhead && paints.count > 0; }));
    EXPECT_EQ(bar.value(), 500);
    EXPECT_EQ(paintedAhead, 0);
    EXPECT_EQ(paints.count, 1);
}

TEST_F(StatusQueueTest, TheHeadFollowsFourTimesASecond)
{
    const auto task = queued(u"a.flac"_s);
    ASSERT_TRUE(titleBecomes(u"Queue: 0 of 1, 0 %"_s));
    int changes = 0;
    QObject::connect(&panel(), &QWidget::windowTitleChanged, &panel(), [&] { ++changes; });
    QElapsedTimer since;
    since.start();
    const int before = panel().refreshes();
    for (int percent = 1; percent <= 20; ++percent) {
        task->progressIndicator()->setDoubleValue(percent);
        const int drawn = panel().refreshes();
        ASSERT_TRUE(runUntil([&] { return panel().refreshes() > drawn; }));
    }
    EXPECT_GE(changes, 1);
    EXPECT_LE(changes, 1 + since.elapsed() / 250);
    EXPECT_LT(changes, panel().refreshes() - before);
    task->stopTask(nullptr);
    EXPECT_TRUE(runUntil([this] { return panel().windowTitle() == u"Queue"_s; })) << "the end is told at once";
}

TEST_F(StatusQueueTest, TenThousandRowsKeepNothingPerRow)
{
    queue().maxThreadsChanged({QString(), nullptr, 0});
    ZOLTTaskQueue::Tasks tasks;
    for (int i = 0; i < 10000; ++i)
        tasks.push_back(HandTask::make(queue(), QString::number(i)));
    queue().addTasks(tasks);
    ASSERT_TRUE(rowsBecome(10000));
    EXPECT_EQ(view().itemDelegate()->children().size(), 0);
    EXPECT_TRUE(view().viewport()->children().isEmpty());   // no widget a row
    EXPECT_FALSE(tasks[9000]->textField()->hasSuperview()); // rows that were never shown were never asked for
    view().scrollToBottom();
    view().grab();
    EXPECT_TRUE(tasks[9999]->textField()->hasSuperview());
}

TEST_F(StatusQueueTest, TheRowThatWasStartedLastIsScrolledTo)
{
    queue().maxThreadsChanged({QString(), nullptr, 1});
    std::vector<std::shared_ptr<HandTask>> tasks;
    for (int i = 0; i < 60; ++i)
        tasks.push_back(queued(QString::number(i)));
    ASSERT_TRUE(rowsBecome(60));
    for (int i = 0; i < 40; ++i)
        tasks[std::size_t(i)]->stopTask(nullptr);
    EXPECT_TRUE(runUntil(
        [this] { return view().viewport()->rect().intersects(view().visualRect(view().model()->index(40, 0))); }));
}

TEST_F(StatusQueueTest, ARowShowsNameBarAndStatusFromTopToBottom)
{
    queued(u"a.flac"_s);
    StatusQueueCell cell;
    queue().tableViewWillDisplayCellForTableColumnRow(cell, 0);
    const QRect row(0, 104, 300, 52);
    const auto places = StatusQueueDelegate::places(cell, row, view().font());
    EXPECT_LT(places.textField.center().y(), places.progressIndicator.center().y());
    EXPECT_LT(places.progressIndicator.center().y(), places.topTextField.center().y());
    EXPECT_GT(places.cancelButton.left(), places.progressIndicator.right());
    for (const QRectF& place : {places.textField, places.progressIndicator, places.topTextField, places.cancelButton}) {
        EXPECT_TRUE(QRectF(row).contains(place));
    }
}

TEST_F(StatusQueueTest, FromRightToLeftARowIsItsMirrorPicture)
{
    queued(u"a.flac"_s);
    StatusQueueCell cell;
    queue().tableViewWillDisplayCellForTableColumnRow(cell, 0);
    const QRect row(20, 104, 300, 52);
    const auto plain = StatusQueueDelegate::places(cell, row, view().font());
    const auto mirrored = StatusQueueDelegate::places(cell, row, view().font(), Qt::RightToLeft);
    EXPECT_LT(mirrored.cancelButton.right(), mirrored.progressIndicator.left());
    EXPECT_EQ(mirrored.textField.right() - row.left(), row.left() + row.width() - plain.textField.left());
}

TEST_F(StatusQueueTest, OutcomesCarryASignBesideTheirColour)
{
    const auto good = queued(u"same"_s);
    queued(u"same"_s); // keeps the queue at work, so that the rows stay
    ASSERT_TRUE(rowsBecome(2));
    const auto signArea = [&](int row) { return view().viewport()->grab(stopButtonOf(row)).toImage(); };
    QImage blank = signArea(0);
    blank.fill(view().palette().color(QPalette::Base));
    good->stopTask(nullptr);
    EXPECT_TRUE(runUntil([&] { return good->cancelButton()->isHidden(); }));
    EXPECT_NE(signArea(0), blank);
}

TEST_F(StatusQueueTest, AWaitingRowIsTakenOutByDelete)
{
    queue().maxThreadsChanged({QString(), nullptr, 0});
    const auto task = queued(u"a.flac"_s), other = queued(u"b.flac"_s);
    ASSERT_TRUE(rowsBecome(2));
    view().setCurrentIndex(view().model()->index(0, 0));
    QTest::keyClick(&view(), Qt::Key_Delete);
    runPosted();
    EXPECT_TRUE(task->cancelled());
    EXPECT_FALSE(other->cancelled());
    EXPECT_EQ(queue().taskCount(), 1);
}

TEST_F(StatusQueueTest, DeleteTakesOutTheSelectedRowsAloneFromTheLastToTheFirst)
{
    queue().maxThreadsChanged({QString(), nullptr, 0});
    const auto first = queued(u"a.flac"_s), second = queued(u"b.flac"_s), third = queued(u"c.flac"_s);
    ASSERT_TRUE(rowsBecome(3));
    for (const int row : {2, 0})
        view().selectionModel()->select(view().model()->index(row, 0), QItemSelectionModel::Select);
    QStringList ended;
    first->atEnd = [&] { ended += u"first"_s; };
    third->atEnd = [&] { ended += u"third"_s; };
    QTest::keyClick(&view(), Qt::Key_Delete);
    runPosted();
    EXPECT_EQ(ended, QStringList({u"third"_s, u"first"_s}));
    EXPECT_FALSE(second->cancelled());
}

TEST_F(StatusQueueTest, TheMenuTakesOutWaitingRowsAndStopsRunningOnes)
{
    queue().maxThreadsChanged({QString(), nullptr, 1});
    const auto running = queued(u"a.flac"_s), waiting = queued(u"b.flac"_s);
    ASSERT_TRUE(rowsBecome(2));
    view().setCurrentIndex(view().model()->index(1, 0));
    const auto offersStop = chooseInMenu(u"Stop"_s);
    menuOnRow(1);
    EXPECT_FALSE(*offersStop);
    chooseInMenu(u"Remove from Queue"_s);
    menuOnRow(1);
    runPosted();
    EXPECT_TRUE(waiting->cancelled());
    EXPECT_FALSE(running->cancelled());
    view().setCurrentIndex(view().model()->index(0, 0));
    chooseInMenu(u"Stop"_s);
    menuOnRow(0);
    runPosted();
    EXPECT_TRUE(running->cancelled());
}

TEST_F(StatusQueueTest, PauseHoldsTheQueueAndTheHeadSaysSo)
{
    auto& pause = *panel().findChild<QPushButton*>(u"pauseButton"_s);
    queued(u"a.flac"_s);
    ASSERT_TRUE(rowsBecome(1));
    QTest::mouseClick(&pause, Qt::LeftButton);
    EXPECT_TRUE(queue().isHeld());
    const auto second = queued(u"b.flac"_s);
    EXPECT_FALSE(second->isActive());
    EXPECT_TRUE(runUntil([this] { return panel().windowTitle().startsWith(u"Queue: Paused: "); }));
    QTest::mouseClick(&pause, Qt::LeftButton);
    EXPECT_TRUE(second->isActive());
}

TEST_F(StatusQueueTest, AtATimeIsSavedAndReachesTheQueue)
{
    auto& field = *panel().findChild<QSpinBox*>(u"paceField"_s);
    EXPECT_EQ(field.value(), 2);
    panel().show();
    field.setFocus();
    QTest::keyClick(&field, Qt::Key_Up);
    EXPECT_EQ(queue().maxThreads(), 3);
    EXPECT_EQ(UserDefaults::standard().integerForKey(u"maxThreads"_s), 3);
}

TEST_F(StatusQueueTest, WhatIsBeingTypedIntoAtATimeIsLeftAlone)
{
    auto& field = *panel().findChild<QSpinBox*>(u"paceField"_s);
    const auto task = queued(u"a.flac"_s);
    ASSERT_TRUE(rowsBecome(1));
    field.setFocus();
    field.selectAll();
    QTest::keyClick(&field, Qt::Key_Backspace);
    const int before = panel().refreshes();
    task->topTextField()->setStringValue(u"42"_s);
    ASSERT_TRUE(runUntil([&] { return panel().refreshes() > before; }));
    EXPECT_EQ(field.text(), QString());
}

/// A task whose tool takes its time to end.
class SlowTask : public HandTask
{
public:
    static std::shared_ptr<SlowTask> makeSlow(ZOLTTaskQueue& queue)
    {
        std::shared_ptr<SlowTask> task(new SlowTask);
        task->setUpWithQueue(&queue);
        task->showTitle(u"slow.flac"_s);
        return task;
    }
    void stopTask(Sender) override { ++stops; }
    int stops = 0;
    void end() { HandTask::stopTask(nullptr); }
};

TEST_F(StatusQueueTest, ARowThatWasAskedToStopSaysWhatItWaitsFor)
{
    const auto task = SlowTask::makeSlow(queue());
    queue().addTask(task);
    ASSERT_TRUE(rowsBecome(1));
    task->cancelTask(nullptr);
    EXPECT_EQ(view().model()->index(0, 0).data().toString(), u"slow.flac: Stopping when the tool ends"_s);
    task->end();
    EXPECT_EQ(queue().taskCount(), 0);
}

TEST_F(StatusQueueTest, ARowThatIsBeingStoppedIsNotStoppedAgain)
{
    const auto task = SlowTask::makeSlow(queue());
    queue().addTask(task);
    ASSERT_TRUE(rowsBecome(1));
    const QPoint button = stopButtonOf(0).center();
    for (int press = 0; press < 3; ++press)
        QTest::mouseClick(view().viewport(), Qt::LeftButton, {}, button);
    view().setCurrentIndex(view().model()->index(0, 0));
    QTest::keyClick(&view(), Qt::Key_Delete);
    runPosted();
    queueCommands::cancelAll(queue());
    EXPECT_EQ(task->stops, 1);
    task->end();
}

TEST_F(StatusQueueTest, RowsThatTakeThePlaceOfAsManyAreOthers)
{
    const auto first = queued(u"a.flac"_s);
    ASSERT_TRUE(rowsBecome(1));
    view().setCurrentIndex(view().model()->index(0, 0));
    first->stopTask(nullptr); // swept, and another comes before the next look
    const auto second = queued(u"b.flac"_s);
    QSignalSpy resets(view().model(), &QAbstractItemModel::modelReset);
    ASSERT_TRUE(runUntil([&] { return !resets.isEmpty(); }));
    EXPECT_FALSE(view().currentIndex().isValid()) << "the keys of a person would reach a row that was not chosen";
    EXPECT_EQ(view().model()->rowCount(), 1);
    second->stopTask(nullptr);
}

TEST_F(StatusQueueTest, TheMenusPauseAndThePanelsAreOne)
{
    queued(u"a.flac"_s);
    ASSERT_TRUE(rowsBecome(1));
    auto& button = *panel().findChild<QPushButton*>(u"pauseButton"_s);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_TRUE(queue().isHeld());
    auto& action = *window().findChild<QAction*>(u"pauseAction"_s);
    action.trigger();
    EXPECT_FALSE(queue().isHeld());
    EXPECT_TRUE(runUntil([&] { return !button.isChecked(); }));
    action.trigger();
    EXPECT_TRUE(queue().isHeld());
    EXPECT_TRUE(runUntil([&] { return button.isChecked(); }));
}

TEST_F(StatusQueueTest, TheMenusKeysWorkInThePanelToo)
{
    queued(u"a.flac"_s);
    ASSERT_TRUE(rowsBecome(1));
    panel().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&panel()));
    QTest::keyClick(&panel(), Qt::Key_P, Qt::ControlModifier);
    EXPECT_TRUE(queue().isHeld());
    QTest::keyClick(&panel(), Qt::Key_P, Qt::ControlModifier);
    EXPECT_FALSE(queue().isHeld());
}

TEST_F(StatusQueueTest, ANameWiderThanItsColumnIsCutOff)
{
    const auto task = queued(QString(300, u'W'));
    ASSERT_TRUE(rowsBecome(1));
    const QImage row = view().viewport()->grab(view().visualRect(view().model()->index(0, 0))).toImage();
    StatusQueueCell cell;
    queue().tableViewWillDisplayCellForTableColumnRow(cell, 0);
    const auto places = StatusQueueDelegate::places(cell, QRect(QPoint(), row.size()), view().font());
    const QRect name = places.textField.toAlignedRect();
    const QRect beside(name.right() + 2, name.top(), row.width() - name.right() - 3, name.height() / 2);
    EXPECT_GT(colourCount(row.copy(name)), 1);
    EXPECT_EQ(colourCount(row.copy(beside)), 1) << "nothing is drawn there";
    task->stopTask(nullptr);
}

TEST_F(StatusQueueTest, ARowThatEndedBeforeAnythingWasDoneHasNoBar)
{
    const auto task = queued(u"a.flac"_s);
    ASSERT_TRUE(rowsBecome(1));
    const auto barColours = [this] {
        StatusQueueCell cell;
        queue().tableViewWillDisplayCellForTableColumnRow(cell, 0);
        const QRect row = view().visualRect(view().model()->index(0, 0));
        const auto places = StatusQueueDelegate::places(cell, QRect(QPoint(), row.size()), view().font());
        const QRect bar = places.progressIndicator.toAlignedRect().adjusted(0, 2, 0, -2);
        return colourCount(view().viewport()->grab(row).toImage().copy(bar));
    };
    task->fail(u"it is broken"_s);
    task->progressIndicator()->setHidden(false);
    task->progressIndicator()->setDoubleValue(0);
    EXPECT_EQ(barColours(), 1);
    task->progressIndicator()->setDoubleValue(42);
    EXPECT_GT(barColours(), 1);
}

TEST_F(StatusQueueTest, ABarWithoutAReadingMovesAndAPieceWithoutANumberCostsNone)
{
    ProgressIndicator bar;
    EXPECT_EQ(shownPart(bar), std::nullopt);
    bar.setDoubleValue(42);
    bar.setDoubleValue(-1);
    EXPECT_EQ(shownPart(bar), 0.42);
    EXPECT_EQ(bar.doubleValue(), -1);
    EXPECT_EQ(shownPart(ProgressIndicator(), true), 0.0) << "a row that has ended stands still";
    const auto task = queued(u"a.flac"_s);
    ASSERT_TRUE(rowsBecome(1));
    const int before = panel().refreshes();
    EXPECT_TRUE(runUntil([&] { return panel().refreshes() > before + 2; })); // nothing changes but the bar
}

TEST_F(StatusQueueTest, WhileSomethingIsTypedThePanelLeavesTheKeyboardAlone)
{
    QWidget other;
    QLineEdit field(&other);
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    field.setFocus();
    queued(u"a.flac"_s);
    ASSERT_TRUE(runUntil([this] { return panel().isVisible(); }));
    EXPECT_TRUE(panel().testAttribute(Qt::WA_ShowWithoutActivating));
}

} // namespace
} // namespace zolt::test
