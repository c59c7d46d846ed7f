#include "ui/reports/OutputWindow.h"

#include "checksum/ChecksumTab.h"
#include "engine/RunRecord.h"
#include "ui/Fonts.h"
#include "ui/ViewChoices.h"
#include "ui/WindowFixture.h"
#include "ui/reports/FindBar.h"
#include "ui/reports/ReportPane.h"
#include "ui/reports/ReportView.h"
#include "ui/runs/RunDesk.h"

#include <QCheckBox>
#include <QFontInfo>
#include <QLineEdit>
#include <QScreen>
#include <QScrollBar>
#include <QTextBlock>

namespace zolt::test {
namespace {

using namespace Qt::StringLiterals;

class OutputWindowTest : public WindowTest
{
protected:
    QWidget& report(const QString& text, const OptionalText& title = u"Verify MD5"_s)
    {
        queue().showOutputWindowTitle(text, title);
        runPosted();
        QWidget& shown = *program_.interfaces().windows().back();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&shown));
        return shown;
    }
    static ReportView& textOf(QWidget& window) { return *window.findChild<ReportView*>(); }
    void settleDeletions() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }
};

TEST_F(OutputWindowTest, ShowsExactlyTheReportAndCountsBesideIt)
{
    const QString text = u"Verify MD5: show.md5\na.flac : OK\nb.flac : FAILED\n"_s;
    QWidget& window = report(text);
    EXPECT_EQ(textOf(window).toPlainText(), text);
    EXPECT_EQ(window.windowTitle(), u"Verify MD5"_s);
    EXPECT_EQ(window.findChild<QLabel*>(u"countLabel"_s)->text(), u"1 OK, 1 failed"_s);
}

TEST_F(OutputWindowTest, NamesThatAreNotUtf8CanBeReadAndAreSavedAsTheyAre)
{
    const QString line = oldName() + u" : OK"_s;
    queue().showOutputWindowTitle(line + u"\nb : OK\n"_s, u"Verify MD5"_s, {.notes = {.missing = {line}}});
    runPosted();
    QWidget& window = *program_.interfaces().windows().back();
    EXPECT_EQ(textOf(window).toPlainText(), u"sätze.flac : OK\nb : OK\n"_s);
    EXPECT_EQ(window.findChild<QLabel*>(u"countLabel"_s)->text(), u"1 OK, 1 missing"_s);
    EXPECT_TRUE(textOf(window).isBad(textOf(window).document()->firstBlock()));
    panels_.answerSavePanel(pathOf(u"report.txt"_s));
    QTest::mouseClick(window.findChild<QPushButton*>(u"saveButton"_s), Qt::LeftButton);
    QFile saved(pathOf(u"report.txt"_s));
    ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
    EXPECT_EQ(saved.readAll(), QByteArray("s\xe4tze.flac : OK\nb : OK\n"));
}

TEST_F(OutputWindowTest, AReportWithoutATitleIsTitledOutput)
{
    EXPECT_EQ(report(u"text"_s, std::nullopt).windowTitle(), u"Output"_s);
}

TEST_F(OutputWindowTest, TheFontIsOfFixedPitchAndTenPoints)
{
    QWidget& window = report(u"text"_s);
    EXPECT_TRUE(keepsPitch(textOf(window).font()));
    EXPECT_EQ(textOf(window).font().pointSizeF(), 10.0);
}

TEST_F(OutputWindowTest, AFontThatKeepsNoPitchHereGivesWayToOneThatDoes)
{
    EXPECT_FALSE(keepsPitch(QApplication::font()));
    for (const QString& family : {QFontInfo(QApplication::font()).family(), u"No Such Family"_s, u"Courier"_s}) {
        const QFont shown = shownFont({family, 10.0});
        EXPECT_TRUE(keepsPitch(shown)) << family.toStdString();
        EXPECT_EQ(shown.pointSizeF(), 10.0);
    }
}

TEST_F(OutputWindowTest, TheTextCanBeSelectedButNotChanged)
{
    QWidget& window = report(u"text"_s);
    QTest::keyClicks(&textOf(window), u"x"_s);
    EXPECT_EQ(textOf(window).toPlainText(), u"text"_s);
    QTest::keyClick(&textOf(window), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(textOf(window).textCursor().selectedText(), u"text"_s);
}

TEST_F(OutputWindowTest, SecondReportOpensBesideTheFirst)
{
    QWidget& first = report(u"one"_s);
    const QPoint place = first.pos();
    QWidget& second = report(u"two"_s);
    EXPECT_EQ(openReports(), 2);
    EXPECT_EQ(second.pos() - place, QPoint(int(Window::cascadeStep), int(Window::cascadeStep)));
    EXPECT_EQ(textOf(first).toPlainText(), u"one"_s);
}

TEST_F(OutputWindowTest, CtrlFFindsAndEscapeLeavesTheSearchThenTheWindow)
{
    QWidget& window = report(u"alpha\nbeta\nalphabet\n"_s);
    QTest::keyClick(&textOf(window), Qt::Key_F, Qt::ControlModifier);
    auto& field = *window.findChild<QLineEdit*>(u"findField"_s);
    ASSERT_TRUE(field.isVisible());
    QTest::keyClicks(&field, u"alpha"_s);
    EXPECT_EQ(textOf(window).textCursor().selectionStart(), 0);
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(textOf(window).textCursor().selectionStart(), 11);
    QTest::keyClick(&field, Qt::Key_Return); // goes on at the top
    EXPECT_EQ(textOf(window).textCursor().selectionStart(), 0);
    QTest::keyClick(&field, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(textOf(window).textCursor().selectionStart(), 11);
    QTest::keyClick(&field, Qt::Key_Escape);
    EXPECT_FALSE(field.isVisible());
    EXPECT_EQ(openReports(), 1);
    QTest::keyClick(&textOf(window), Qt::Key_Escape);
    settleDeletions();
    EXPECT_EQ(openReports(), 0);
}

TEST_F(OutputWindowTest, CtrlWClosesAndTheQueueKeepsTheReport)
{
    QWidget& window = report(u"text"_s);
    QTest::keyClick(&textOf(window), Qt::Key_W, Qt::ControlModifier);
    settleDeletions();
    EXPECT_EQ(openReports(), 0);
    EXPECT_EQ(queue().outputWindows().size(), 1U);
}

TEST_F(OutputWindowTest, CtrlSSavesExactlyTheReport)
{
    QWidget& window = report(u"größe : OK\n"_s);
    panels_.answerSavePanel(pathOf(u"report.txt"_s));
    QTest::keyClick(&textOf(window), Qt::Key_S, Qt::ControlModifier);
    QFile saved(pathOf(u"report.txt"_s));
    ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
    EXPECT_EQ(QString::fromUtf8(saved.readAll()), u"größe : OK\n"_s);
    EXPECT_EQ(panels_.saveRequests()[0].fileName, u"Verify MD5.txt"_s);
}

TEST_F(OutputWindowTest, AReportThatCannotBeSavedIsTold)
{
    QWidget& window = report(u"text"_s);
    panels_.answerSavePanel(pathOf(u"none/report.txt"_s));
    panels_.answerAlert(alertReply::defaultButton);
    QTest::keyClick(&textOf(window), Qt::Key_S, Qt::ControlModifier);
    ASSERT_EQ(panels_.alerts().size(), 1U);
    EXPECT_TRUE(panels_.alerts()[0].message.contains(u"none/report.txt"));
}

TEST_F(OutputWindowTest, TheCauseStandsAboveAndTheToolsBannerIsScrolledPast)
{
    QString text = u"flac 1.4.2\n"_s;
    for (int line = 0; line < 200; ++line)
        text += u"banner\n"_s;
    text += u"a.flac: ERROR: output file a.wav already exists, use -f to override\n"_s;
    QWidget& window = report(text);
    EXPECT_TRUE(window.findChild<QLabel*>(u"causeLabel"_s)->isVisible());
    EXPECT_GT(textOf(window).verticalScrollBar()->value(), 100);
    EXPECT_EQ(textOf(window).toPlainText(), text);
    QWidget& good = report(u"a.flac : OK\n"_s);
    EXPECT_FALSE(good.findChild<QLabel*>(u"causeLabel"_s)->isVisible());
}

TEST_F(OutputWindowTest, AFileThatIsNotThereCountsAsMissingWhateverItsLineSays)
{
    QFile list(pathOf(u"set.md5"_s));
    ASSERT_TRUE(list.open(QIODevice::WriteOnly));
    list.write("00000000000000000000000000000000 *there.wav\n"   // not its sum
               "d41d8cd98f00b204e9800998ecf8427e *gone.wav\n"    // the sum of nothing, as the report has it: OK
               "00000000000000000000000000000000 *gone2.wav\n"); // FAILED
    list.close();
    file(u"there.wav"_s);
    auto& checksums = program_.program().tab<ChecksumTab>();
    checksums.commandOptions->selectCell(ChecksumTab::VerifyLists, 0);
    checksums.addFiles({list.fileName()});
    checksums.waitForFiles();
    checksums.executeCommand(nullptr);
    ASSERT_TRUE(runUntil([&] { return openReports() == 1 && !program_.program().record().isRunning(); }));
    runPosted();

    QWidget& window = *program_.interfaces().windows().back();
    const QString report = textOf(window).toPlainText();
    EXPECT_TRUE(report.contains(u"gone.wav : OK\ngone2.wav : FAILED\n"_s)) << report.toStdString();
    EXPECT_EQ(window.findChild<QLabel*>(u"countLabel"_s)->text(), u"1 failed, 2 missing"_s);
    EXPECT_EQ(inWords(program_.program().record().current()->rows.front().verdict), u"1 failed, 2 missing"_s);
    QTest::mouseClick(window.findChild<QCheckBox*>(u"badBox"_s), Qt::LeftButton, {}, QPoint(6, 6));
    const QTextDocument& lines = *textOf(window).document();
    EXPECT_FALSE(lines.findBlockByNumber(0).isVisible());
    for (int bad = 1; bad <= 3; ++bad)
        EXPECT_TRUE(lines.findBlockByNumber(bad).isVisible()) << bad;

    program_.runDesk().showLastRun();
    EXPECT_EQ(program_.runDesk().history().findChild<QLabel*>(u"countLabel"_s)->text(), u"1 failed, 2 missing"_s);
}

TEST_F(OutputWindowTest, BadLinesAloneCanBeShownAndLinesWrapped)
{
    QWidget& window = report(u"a.flac : OK\nb.flac : FAILED\n"_s);
    auto& bad = *window.findChild<QCheckBox*>(u"badBox"_s);
    QTest::mouseClick(&bad, Qt::LeftButton, {}, QPoint(6, bad.height() / 2));
    EXPECT_FALSE(textOf(window).document()->findBlockByNumber(0).isVisible());
    EXPECT_TRUE(textOf(window).document()->findBlockByNumber(1).isVisible());
    EXPECT_EQ(textOf(window).toPlainText(), u"a.flac : OK\nb.flac : FAILED\n"_s);
    auto& wrap = *window.findChild<QCheckBox*>(u"wrapBox"_s);
    QTest::mouseClick(&wrap, Qt::LeftButton, {}, QPoint(6, wrap.height() / 2));
    EXPECT_EQ(textOf(window).lineWrapMode(), QPlainTextEdit::WidgetWidth);
}

TEST_F(OutputWindowTest, AGoodReportIsShownWholeWhereBadLinesAloneWereWanted)
{
    ReportPane pane;
    pane.setReport(u"one"_s, u"a.flac : OK\nb.flac : FAILED\n"_s);
    pane.findChild<QCheckBox*>(u"badBox"_s)->setChecked(true);
    pane.setReport(u"two"_s, u"a.flac : OK\n"_s);
    EXPECT_FALSE(pane.findChild<QCheckBox*>(u"badBox"_s)->isEnabled());
    EXPECT_TRUE(pane.findChild<ReportView*>()->document()->firstBlock().isVisible());
}

TEST_F(OutputWindowTest, ALongerWordIsFoundWhereTheShorterOneStands)
{
    QWidget& window = report(u"beta alpha\nbe better\n"_s);
    QTest::keyClick(&textOf(window), Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(window.findChild<QLineEdit*>(u"findField"_s), u"bet"_s);
    EXPECT_EQ(textOf(window).textCursor().selectionStart(), 0);
}

TEST_F(OutputWindowTest, ALongCascadeStaysOnTheScreen)
{
    QWidget& window = report(u"text"_s);
    const QRect screen = window.screen()->availableGeometry();
    for (const QSize& size : {QSize(400, 300), screen.size() - QSize(30, 30)}) {
        window.resize(size);
        for (const int distance : {0, 21, 42, 5000}) {
            queue().outputWindows().back()->window()->setFrameTopLeftPoint(QPointF(distance, distance + 1));
            runPosted();
            EXPECT_TRUE(screen.contains(window.frameGeometry())) << size.width() << " wide, " << distance;
        }
    }
}

TEST_F(OutputWindowTest, InTheSmallestWindowEachButtonHasItsRoom)
{
    QWidget& window = report(u"a.flac : OK\nb.flac : FAILED\n"_s);
    for (const QSize& size : {window.minimumSize(), QSize(680, 420)}) {
        window.resize(size);
        ASSERT_TRUE(runUntil([&] { return window.size() == size; }));
        runPosted();
        for (const char* name : {"badBox", "wrapBox", "findButton", "saveButton", "folderButton"}) {
            const auto* const button = window.findChild<QAbstractButton*>(QLatin1String(name));
            EXPECT_GE(button->width(), button->sizeHint().width()) << name;
        }
    }
    for (int width = 680; width >= 320; width -= 10) { // in two rows as soon as one is too narrow
        window.resize(width, 420);
        runPosted();
        EXPECT_LT(window.findChild<QLabel*>(u"countLabel"_s)->height(), 30) << width;
    }
    window.resize(680, 420);
    runPosted();
    const auto top = [&](const char* name) {
        const QWidget* const widget = window.findChild<QWidget*>(QLatin1String(name));
        return widget->geometry().center().y();
    };
    EXPECT_NEAR(top("badBox"), top("findButton"), 2); // one row where there is room
}

TEST_F(OutputWindowTest, SignsStandBesideTheirLinesWithTheGoodOnesHidden)
{
    QString text;
    for (int line = 0; line < 50; ++line)
        text += u"a.flac : OK\n"_s;
    QWidget& window = report(text + u"b.flac : FAILED\n"_s);
    const auto sign = [&] { // the first line of the margin's picture that has one
        const QImage margin = textOf(window).grab(QRect(1, 1, textOf(window).marginWidth(), 200)).toImage();
        for (int y = 0; y < margin.height(); ++y) {
            for (int x = 0; x < margin.width(); ++x) {
                if (const QColor colour = margin.pixelColor(x, y); colour.red() > colour.blue() + 60) return y;
            }
        }
        return -1;
    };
    textOf(window).verticalScrollBar()->setValue(0);
    EXPECT_EQ(sign(), -1);
    window.findChild<QCheckBox*>(u"badBox"_s)->setChecked(true);
    EXPECT_GE(sign(), 0);
    EXPECT_LT(sign(), 2 * textOf(window).fontMetrics().height());
}

TEST_F(OutputWindowTest, AReportFromAThreadGoesToItsPlaceOnceItIsTold)
{
    QWidget& first = report(u"one"_s);
    const QPoint before = first.pos();
    queue().outputWindows()[0]->window()->setFrameTopLeftPoint(QPointF(120, 90));
    runPosted();
    EXPECT_NE(first.pos(), before);
}

TEST_F(OutputWindowTest, TheFifthReportOffersToGatherThem)
{
    for (int count = 1; count <= 4; ++count)
        EXPECT_FALSE(report(u"text"_s).findChild<QWidget*>(u"gatherBar"_s)->isVisible());
    QWidget& fifth = report(u"text"_s);
    EXPECT_TRUE(fifth.findChild<QWidget*>(u"gatherBar"_s)->isVisible());
    QTest::mouseClick(fifth.findChild<QPushButton*>(u"gatherButton"_s), Qt::LeftButton);
    settleDeletions();
    runPosted();
    EXPECT_EQ(openReports(), 0);
    EXPECT_TRUE(viewChoices::gathersReports());
    EXPECT_TRUE(program_.runDesk().history().isVisible());
    queue().showOutputWindowTitle(u"one more"_s, u"x"_s);
    runPosted();
    EXPECT_EQ(openReports(), 0);
    EXPECT_EQ(queue().outputWindows().size(), 6U);
}

} // namespace
} // namespace zolt::test
