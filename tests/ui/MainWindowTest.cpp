#include "ui/MainWindow.h"

#include "app/Tabs.h"
#include "engine/ZOLTTask.h"
#include "platform/threads/DetachedThreads.h"
#include "platform/threads/MainQueue.h"
#include "shell/Constants.h"
#include "ui/Drags.h"
#include "ui/Mnemonics.h"
#include "ui/WindowFixture.h"
#include "ui/WindowPlaces.h"

#include <QLineEdit>
#include <QMenuBar>
#include <QScreen>
#include <QTabBar>
#include <QTabWidget>
#include <QTextBrowser>
#include <QTextTable>

namespace zolt::test {
namespace {

using namespace Qt::StringLiterals;

class MainWindowTest : public WindowTest
{
protected:
    MainWindowTest()
    {
        program_.setEnded([this] { ended_ = true; });
    }
    QTabWidget& tabs() { return widget<QTabWidget>("tabView"); }
    void closeAnswering(int reply)
    {
        panels_.answerAlert(reply);
        window().close();
    }
    /// Ends the program, and lets go of what it waits for once it waits.
    /// @return whether it has said so
    bool endsBehindANote(const std::function<void()>& end, const std::function<void()>& letGo)
    {
        bool noteSeen = false;
        program_.setEnding([&] {
            postToMain([&] { // from the event loop, which goes on while it waits
                noteSeen = showsNote();
                letGo();
            });
        });
        end();
        return runUntil([this] { return ended_; }) && noteSeen;
    }
    static bool showsNote()
    {
        const auto all = QApplication::topLevelWidgets();
        return std::any_of(all.begin(), all.end(), [](const QWidget* each) {
            return each->objectName() == u"waitingNote" && each->isVisible();
        });
    }

    bool ended_ = false;
};

TEST_F(MainWindowTest, TabsStandInTheirOrderUnderTheirLabels)
{
    ASSERT_EQ(tabs().count(), aboutTab() + 1);
    for (int index = 0; index < aboutTab(); ++index)
        EXPECT_EQ(tabs().tabText(index), tabRows()[std::size_t(index)].label);
    EXPECT_EQ(tabs().tabText(aboutTab()), Constants::ABOUT);
}

TEST_F(MainWindowTest, CtrlAndANumberChooseATab)
{
    QTest::keyClick(&window(), Qt::Key(Qt::Key_1 + aboutTab()), Qt::ControlModifier);
    runPosted();
    EXPECT_EQ(tabs().currentIndex(), aboutTab());
    EXPECT_EQ(controller().selectedTabViewItem()->label(), Constants::ABOUT);
    QTest::keyClick(&window(), Qt::Key_1, Qt::ControlModifier);
    runPosted();
    EXPECT_EQ(tabs().currentIndex(), 0);
}

TEST_F(MainWindowTest, ATabThatIsClickedIsSelectedInTheController)
{
    QTest::mouseClick(tabs().tabBar(), Qt::LeftButton, {}, tabs().tabBar()->tabRect(aboutTab()).center());
    EXPECT_EQ(controller().selectedTabViewItem()->label(), Constants::ABOUT);
}

TEST_F(MainWindowTest, FilesFromOutsideReachTheirTab)
{
    program_.selectTab(aboutTab());
    program_.openFiles({file(u"a.flac"_s)});
    EXPECT_TRUE(runUntil([this] { return tab().fileNames().count() == 1; }));
    runPosted();
    EXPECT_EQ(tabs().currentIndex(), 0);
}

TEST_F(MainWindowTest, ATabThatIsNotThereIsPassedOver)
{
    program_.selectTab(aboutTab() + 1);
    runPosted();
    EXPECT_EQ(tabs().currentIndex(), 0);
}

TEST_F(MainWindowTest, NoToTheQuestionKeepsTheWindow)
{
    closeAnswering(alertReply::defaultButton);
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(panels_.alerts()[0].title, u"Are you sure you want to quit?"_s);
    EXPECT_FALSE(ended_);
}

TEST_F(MainWindowTest, YesEndsTheProgram)
{
    closeAnswering(alertReply::alternateButton);
    EXPECT_TRUE(runUntil([this] { return ended_; }));
    EXPECT_FALSE(window().isVisible());
}

TEST_F(MainWindowTest, NoToTheSecondQuestionBringsTheWindowBack)
{
    queue().maxThreadsChanged({QString(), nullptr, 0});
    const auto task = ZOLTTask::initWithQueue(&queue());
    queue().addTask(task);
    panels_.answerAlert(alertReply::alternateButton);
    closeAnswering(alertReply::defaultButton);
    EXPECT_TRUE(runUntil([this] { return panels_.alerts().size() == 2; }));
    runUntil([this] { return window().isVisible(); });
    EXPECT_TRUE(window().isVisible());
    EXPECT_FALSE(ended_);
    EXPECT_EQ(panels_.alerts()[1].title, u"Tasks in Progress"_s);
}

TEST_F(MainWindowTest, TheProgramWaitsForRunningToolsBeforeItEnds)
{
    tool(u"flac"_s, "while [ ! -e '" + QFile::encodeName(pathOf(u"go"_s)) + "' ]; do sleep 0.05; done\n");
    add({file(u"a.flac"_s)});
    QTest::keyClick(&window(), Qt::Key_Return, Qt::ControlModifier);
    panels_.answerAlert(alertReply::alternateButton);
    EXPECT_TRUE(endsBehindANote([this] { QTest::keyClick(&window(), Qt::Key_Q, Qt::ControlModifier); },
                                [this] { file(u"go"_s); }));
}

TEST_F(MainWindowTest, TheProgramWaitsForAToolWhoseTaskHasReportedBefore)
{
    std::atomic<bool> toolHasEnded = false;
    detachThread([&] { toolHasEnded.wait(false); });
    ASSERT_EQ(queue().taskCount(), 0);
    const auto letGo = [&] {
        toolHasEnded = true;
        toolHasEnded.notify_all();
    };
    EXPECT_TRUE(endsBehindANote([this] { closeAnswering(alertReply::alternateButton); }, letGo));
}

TEST_F(MainWindowTest, AStartThatComesWhileTheProgramEndsIsAStartOfItsOwn)
{
    QList<QStringList> anew;
    program_.setStartAnew([&](const QStringList& paths) { anew += paths; });
    program_.setEnding([this] {
        program_.present();
        program_.openFiles({u"/music/a.flac"_s});
        program_.selectTab(1);
    });
    closeAnswering(alertReply::alternateButton);
    EXPECT_TRUE(runUntil([this] { return ended_; }));
    EXPECT_EQ(anew, QList<QStringList>({{}, {u"/music/a.flac"_s}}));
    EXPECT_FALSE(window().isVisible());
    EXPECT_TRUE(tab().fileNames().isEmpty());
}

TEST_F(MainWindowTest, TheWindowsPlaceIsKept)
{
    window().resize(800, 555);
    closeAnswering(alertReply::alternateButton);
    EXPECT_TRUE(runUntil([this] { return ended_; }));
    EXPECT_FALSE(UserDefaults::standard().stringForKey(u"windowPlace.main"_s).isEmpty());
    WindowProgram again;
    EXPECT_EQ(again.mainWindow().size(), QSize(800, 555));
}

TEST_F(MainWindowTest, TheWindowIsNeverSmallerThanItsContents)
{
    EXPECT_EQ(window().minimumSize(), QSize(720, 480));
    EXPECT_LE(window().centralWidget()->minimumSizeHint().width(), 720);
    EXPECT_LE(window().centralWidget()->minimumSizeHint().height(), 440);
}

TEST_F(MainWindowTest, EveryMenuHasEachMnemonicOnceAndEachKeyIsThereOnce)
{
    QSet<QChar> menus;
    QSet<QString> keys;
    for (const QAction* menu : window().menuBar()->actions()) {
        EXPECT_FALSE(menus.contains(mnemonicOf(menu->text()))) << menu->text().toStdString();
        menus += mnemonicOf(menu->text());
        QSet<QChar> seen;
        for (const QAction* action : menu->menu()->actions()) {
            const QChar key = mnemonicOf(action->text());
            EXPECT_FALSE(!key.isNull() && seen.contains(key)) << action->text().toStdString();
            seen += key;
            const QString shortcut = action->shortcut().toString();
            EXPECT_FALSE(!shortcut.isEmpty() && keys.contains(shortcut)) << shortcut.toStdString();
            keys += shortcut;
        }
    }
}

TEST_F(MainWindowTest, ThePagesTurnByKeyAndGoRound)
{
    QTest::keyClick(&window(), Qt::Key_PageDown, Qt::ControlModifier);
    runPosted();
    EXPECT_EQ(tabs().currentIndex(), 1);
    for (int step = 0; step < 2; ++step) {
        QTest::keyClick(&window(), Qt::Key_PageUp, Qt::ControlModifier);
        runPosted();
    }
    EXPECT_EQ(tabs().currentIndex(), aboutTab());
}

TEST_F(MainWindowTest, HelpShowsTheGuideAndEveryKey)
{
    QTest::keyClick(&window(), Qt::Key_F1);
    const auto* const guide = window().findChild<QTextBrowser*>(u"guide"_s);
    ASSERT_NE(guide, nullptr);
    EXPECT_TRUE(guide->toPlainText().contains(u"Decoding"));
    for (const QString& name : {u"decode"_s, u"queue"_s, u"tags"_s}) {
        const QUrl place(u"screenshots/%1.png"_s.arg(name));
        const QVariant picture = guide->document()->resource(QTextDocument::ImageResource, place);
        EXPECT_GT(picture.value<QImage>().width(), 300) << name.toStdString();
        EXPECT_LT(picture.value<QImage>().width(), guide->width()) << name.toStdString();
    }
    delete guide;
    window().findChild<QAction*>(u"shortcutsAction"_s)->trigger();
    const auto& keys = *window().findChild<QTextBrowser*>(u"guide"_s);
    EXPECT_TRUE(keys.toPlainText().contains(u"Ctrl+Shift+O"));
    for (const QTextFrame* const frame : keys.document()->rootFrame()->childFrames()) {
        const auto format = static_cast<const QTextTable*>(frame)->format();
        EXPECT_EQ(format.width(), QTextLength(QTextLength::PercentageLength, 100)); // one below the other
        EXPECT_GT(format.cellPadding(), 2);
    }
}

TEST_F(MainWindowTest, ChoicesAreKeptOnEveryWayOutButNeverToDelete)
{
    tab().outputFormatMatrix->selectTitle(u"AIFF"_s);
    tab().deleteOriginalsButton->setState(true);
    tab().sourceDecodeButton->setState(false);
    runPosted();
    widget<QLineEdit>("destinationField").setText(u"/music"_s);
    ASSERT_TRUE(
        runUntil([] { return UserDefaults::standard().stringForKey(u"page.decode.destination"_s) == u"/music"; }));
    WindowProgram again;
    auto& other = again.program().tab<DecodeTab>();
    EXPECT_EQ(other.outputFormat(), u"AIFF"_s);
    EXPECT_FALSE(other.sourceDecodeButton->state());
    EXPECT_FALSE(other.deleteOriginalsButton->state());
    EXPECT_EQ(other.destination(), u"/music"_s);
}

TEST_F(MainWindowTest, ADropBesideThePagesIsACopyToo)
{
    EXPECT_EQ(dropOn(*window().menuBar()->parentWidget(), {file(u"a.flac"_s)}), Qt::CopyAction);
    EXPECT_TRUE(listBecomes(1));
}

TEST_F(MainWindowTest, TheWindowFitsItsScreen)
{
    QWidget large;
    large.setMinimumSize(3000, 2000);
    large.move(-500, -400);
    large.show();
    fitToScreen(large);
    const QRect room = large.screen()->availableGeometry();
    EXPECT_TRUE(room.contains(large.geometry())) << large.width() << " by " << large.height();
}

TEST_F(MainWindowTest, TheTabKeyGoesFromTheListThroughTheChoicesToTheAction)
{
    tool(u"flac"_s, "exit 0\n");
    add({file(u"a.flac"_s)});
    ASSERT_TRUE(listBecomes(1));
    widget<QWidget>("tableView").setFocus();
    QStringList stops;
    while (stops.size() < 20 && !stops.contains(u"commandButton"_s)) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        stops += QApplication::focusWidget()->objectName();
    }
    qsizetype last = -1;
    for (const QString& stop : {u"clearButton"_s, u"outputFormatMatrix_0"_s, u"sourceDecodeButton"_s,
                                u"deleteOriginalsButton"_s, u"flacKeepForeignMetadataButton"_s, u"commandButton"_s}) {
        EXPECT_GT(stops.indexOf(stop), last) << stop.toStdString();
        last = stops.indexOf(stop);
    }
}

} // namespace
} // namespace zolt::test
