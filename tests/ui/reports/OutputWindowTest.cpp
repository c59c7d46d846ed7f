#include "ui/reports/OutputWindow.h"

#include "ui/Fonts.h"
#include "ui/WindowFixture.h"
#include "ui/reports/FindBar.h"
#include "ui/reports/ReportView.h"

#include <QFontDatabase>
#include <QLineEdit>

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
    std::size_t openReports() { return program_.interfaces().windows().size() - 1; }
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
    EXPECT_EQ(openReports(), 2U);
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
    EXPECT_EQ(openReports(), 1U);
    QTest::keyClick(&textOf(window), Qt::Key_Escape);
    settleDeletions();
    EXPECT_EQ(openReports(), 0U);
}

TEST_F(OutputWindowTest, CtrlWClosesAndTheQueueKeepsTheReport)
{
    QWidget& window = report(u"text"_s);
    QTest::keyClick(&textOf(window), Qt::Key_W, Qt::ControlModifier);
    settleDeletions();
    EXPECT_EQ(openReports(), 0U);
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

} // namespace
} // namespace zolt::test
