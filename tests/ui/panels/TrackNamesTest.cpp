// The windows for track names, for characters to be cut off, and for custom tags.
#include "platform/desktop/Panels.h"
#include "platform/threads/NotificationCenter.h"
#include "shell/Constants.h"
#include "shntool/TrackNameInputController.h"
#include "support/EventLoop.h"
#include "tags/ZOLTCustomTagsPanel.h"
#include "ui/QtInterfaces.h"
#include "ui/panels/QtPanels.h"

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimer>

namespace zolt::test {
namespace {

using namespace Qt::StringLiterals;

class TrackNamesTest : public testing::Test
{
protected:
    TrackNamesTest() { installPanels(&panels_); }
    ~TrackNamesTest() override { installPanels(nullptr); }

    void show()
    {
        names_.showWindow(nullptr);
        runPosted();
        EXPECT_TRUE(QTest::qWaitForWindowActive(interfaces_.windows().front()));
    }
    template <class Widget> Widget& find(const char* name)
    {
        return *interfaces_.windows().front()->findChild<Widget*>(QString::fromLatin1(name));
    }
    QPlainTextEdit& text() { return find<QPlainTextEdit>("inputText"); }
    QPushButton& undo() { return find<QPushButton>("undoButton"); }
    QPushButton& redo() { return find<QPushButton>("redoButton"); }
    void click(QPushButton& button)
    {
        QTest::mouseClick(&button, Qt::LeftButton);
        runPosted();
    }
    /// Has the person act once a modal window is up.
    void whenShown(std::function<void(QWidget&)> person)
    {
        auto* const watch = new QTimer(&owner_);
        QObject::connect(watch, &QTimer::timeout, watch, [watch, person] {
            QWidget* const shown = QApplication::activeModalWidget();
            if (!shown || !shown->isVisible()) return;
            watch->stop();
            runPosted();
            person(*shown);
        });
        watch->start(5);
    }

    QObject owner_;
    QtPanels panels_;
    QtInterfaces interfaces_;
    TrackNameInputController names_;
};

TEST_F(TrackNamesTest, TypedTextComesBackFromAnUndo)
{
    names_.setNames(u"One\nTwo\n"_s);
    show();
    EXPECT_FALSE(redo().isEnabled());
    text().moveCursor(QTextCursor::End);
    QTest::keyClicks(&text(), u"Three"_s);
    runPosted();
    EXPECT_EQ(names_.namesText(), u"One\nTwo\nThree"_s);
    EXPECT_EQ(undo().toolTip(), u"Undo Typing (Ctrl+Z)"_s);
    QTest::keyClick(&text(), Qt::Key_Z, Qt::ControlModifier);
    runPosted();
    EXPECT_EQ(names_.namesText(), u"One\nTwo\n"_s);
    EXPECT_EQ(undo().toolTip(), u"Undo Set Track Name Text (Ctrl+Z)"_s);
    click(undo());
    EXPECT_EQ(text().toPlainText(), QString());
    EXPECT_FALSE(undo().isEnabled());
    click(redo());
    QTest::keyClick(&text(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    runPosted();
    EXPECT_EQ(text().toPlainText(), u"One\nTwo\nThree"_s);
}

TEST_F(TrackNamesTest, NoLetterOfANameIsLostByShowingItOrByTypingBesideIt)
{
    const QString names = u"Où ?\nOne"_s.replace(u' ', QChar(QChar::Nbsp)) + QChar(u'\0') + u"Two\r\tThree\n"_s;
    names_.setNames(names);
    show();
    EXPECT_EQ(names_.namesText(), names);
    EXPECT_EQ(undo().toolTip(), u"Undo Set Track Name Text (Ctrl+Z)"_s) << "nobody has typed";
    text().moveCursor(QTextCursor::End);
    QTest::keyClicks(&text(), u"Four"_s);
    EXPECT_EQ(names_.namesText(), QString(names + u"Four"_s).replace(u'\r', u'\n'));
}

TEST_F(TrackNamesTest, ALineIsAStepByItself)
{
    show();
    QTest::keyClicks(&text(), u"One"_s);
    QTest::keyClick(&text(), Qt::Key_Return);
    QTest::keyClicks(&text(), u"Two"_s);
    names_.undoManager().undo();
    EXPECT_EQ(names_.namesText(), u"One"_s);
    names_.undoManager().undo();
    EXPECT_EQ(names_.namesText(), QString());
}

TEST_F(TrackNamesTest, TheSelectionIsWhatIsCut)
{
    names_.setNames(u"1 One\n2 Two\n"_s);
    show();
    text().selectAll();
    whenShown([](QWidget& panel) {
        auto& number = *panel.findChild<QLineEdit*>(u"numberField"_s);
        number.setFocus();
        number.selectAll();
        QTest::keyClicks(&number, u"2"_s);
        QTest::keyClick(&panel, Qt::Key_Return);
    });
    click(find<QPushButton>("trimButton"));
    EXPECT_EQ(names_.namesText(), u"One\nTwo\n"_s);
}

TEST_F(TrackNamesTest, TabGoesFromTheNumberToWhereItIsCut)
{
    names_.setNames(u"One 1\n"_s);
    show();
    text().selectAll();
    whenShown([](QWidget& panel) {
        QApplication::setActiveWindow(&panel); // it may be shown and not be active yet
        auto& number = *panel.findChild<QLineEdit*>(u"numberField"_s);
        number.setFocus();
        QTest::keyClicks(&number, u"2"_s);
        QTest::keyClick(&number, Qt::Key_Tab);
        EXPECT_TRUE(qobject_cast<QRadioButton*>(QApplication::focusWidget()));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
        QTest::keyClick(&panel, Qt::Key_Return);
    });
    click(find<QPushButton>("trimButton"));
    EXPECT_EQ(names_.namesText(), u"One\n"_s);
}

TEST_F(TrackNamesTest, ThePanelForCuttingIsMadeAnewAndEscapeCutsNothing)
{
    names_.setNames(u"1 One\n"_s);
    show();
    for (int run = 0; run < 2; ++run) {
        text().selectAll();
        whenShown([](QWidget& panel) {
            QTest::keyClicks(panel.findChild<QLineEdit*>(u"numberField"_s), u"2"_s);
            QTest::keyClick(&panel, Qt::Key_Escape);
        });
        click(find<QPushButton>("trimButton"));
        EXPECT_EQ(names_.namesText(), u"1 One\n"_s);
    }
}

TEST_F(TrackNamesTest, CtrlReturnTakesTheNames)
{
    show();
    QStringList taken;
    NotificationCenter::standard().addObserver(
        this, Constants::ZOLTTrackNamesEnteredNotification, nullptr,
        [&](const Notification& posted) { taken = std::any_cast<QStringList>(posted.object); });
    QTest::keyClicks(&text(), u"One"_s);
    QTest::keyClick(&text(), Qt::Key_Return, Qt::ControlModifier);
    NotificationCenter::standard().removeObserver(this, Constants::ZOLTTrackNamesEnteredNotification, nullptr);
    EXPECT_EQ(taken, QStringList{u"One"_s});
    EXPECT_FALSE(names_.window()->isVisible());
}

TEST_F(TrackNamesTest, EscapeHidesTheWindowAndKeepsTheText)
{
    show();
    QTest::keyClicks(&text(), u"One"_s);
    QTest::keyClick(&text(), Qt::Key_Escape);
    runPosted();
    EXPECT_FALSE(names_.window()->isVisible());
    EXPECT_EQ(names_.namesText(), u"One"_s);
}

TEST_F(TrackNamesTest, CustomTagsAreTakenHoweverTheirPanelIsClosed)
{
    ZOLTCustomTagsPanel custom;
    for (const char* name : {"first", "second"}) {
        whenShown([name](QWidget& panel) {
            auto& field = *panel.findChild<QLineEdit*>(u"customTagNameText1"_s);
            field.clear();
            QTest::keyClicks(&field, QString::fromLatin1(name));
            QTest::keyClicks(panel.findChild<QLineEdit*>(u"customTagValueText8"_s), u"x"_s);
            QTest::keyClick(&panel, Qt::Key_Escape);
        });
        custom.runPanel();
        EXPECT_TRUE(custom.customTagDictionary()->contains(QString::fromLatin1(name)));
        EXPECT_FALSE(custom.panel()->isVisible());
    }
    EXPECT_EQ(custom.customTagValueText8->stringValue(), u"xx"_s);
    EXPECT_EQ(custom.outlets().size(), 16U);
}

} // namespace
} // namespace zolt::test
