#include "ui/panels/PreferencesWindow.h"

#include "shell/PreferencesController.h"
#include "ui/WindowFixture.h"
#include "ui/pages/OutlookLine.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QSpinBox>
#include <QStackedWidget>

namespace zolt::test {
namespace {

using namespace Qt::StringLiterals;

class PreferencesWindowTest : public WindowTest
{
protected:
    PreferencesWindowTest()
    {
        QTest::keyClick(&window(), Qt::Key_Comma, Qt::ControlModifier);
        EXPECT_TRUE(runUntil([this] { return preferences().isVisible(); }));
        runPosted();
    }
    QWidget& preferences() { return windowNamed<QWidget>("Preferences"); }
    template <class Widget> Widget& part(const char* name)
    {
        auto* const found = preferences().findChild<Widget*>(QString::fromLatin1(name));
        if (!found) throw std::runtime_error(name);
        return *found;
    }
    void press(const char* name)
    {
        QTest::mouseClick(&part<QAbstractButton>(name), Qt::LeftButton);
        runPosted();
    }
    PreferencesController& model() { return controller().preferencesController(); }
    QString saved(const QString& key) const { return UserDefaults(pathOf(u"settings.ini"_s)).stringForKey(key); }
};

TEST_F(PreferencesWindowTest, ClosedAndOpenedAgainItIsTheSameWindow)
{
    QWidget* const first = &preferences();
    ASSERT_TRUE(QTest::qWaitForWindowActive(first));
    QTest::keyClick(first, Qt::Key_Escape);
    runPosted();
    EXPECT_FALSE(first->isVisible());
    EXPECT_FALSE(model().window()->isVisible());
    window().findChild<QAction*>(u"preferencesAction"_s)->trigger();
    EXPECT_TRUE(runUntil([&] { return first->isVisible(); }));
    EXPECT_EQ(&preferences(), first);
}

TEST_F(PreferencesWindowTest, APaneShowsWholeAndTheTopEdgeStaysWhenTheOtherComes)
{
    const auto fits = [this](const char* last) {
        const QWidget& widget = part<QWidget>(last);
        const QRect place(widget.mapTo(&preferences(), QPoint()), widget.size());
        return preferences().rect().contains(place);
    };
    EXPECT_TRUE(fits("restoreGeneralButton"));
    EXPECT_EQ(preferences().width(), 460) << "the width that the window was drawn with";
    const int top = preferences().y(), height = preferences().height();
    press("MetadataItem");
    ASSERT_TRUE(runUntil(
        [&] { return preferences().height() == Window::contentRectForFrameRect(model().window()->frame()).height(); }));
    EXPECT_EQ(part<QStackedWidget>("preferencesTab").currentIndex(), 1);
    EXPECT_TRUE(fits("restoreMetadataButton"));
    EXPECT_NE(preferences().height(), height);
    EXPECT_EQ(preferences().y(), top);
    press("GeneralItem");
    ASSERT_TRUE(runUntil([&] { return preferences().height() == height; }));
    EXPECT_EQ(preferences().y(), top);
}

TEST_F(PreferencesWindowTest, TheStepperAndTheQueuePanelAgree)
{
    auto& stepper = part<QSpinBox>("maxThreadsStepper");
    auto& pace = *windowNamed<QWidget>("StatusQueue").findChild<QSpinBox*>(u"paceField"_s);
    EXPECT_EQ(pace.maximum(), stepper.maximum());
    QTest::keyClick(&stepper, Qt::Key_Up);
    EXPECT_EQ(queue().maxThreads(), 3);
    EXPECT_EQ(saved(u"maxThreads"_s), u"3"_s);
    runPosted();
    EXPECT_EQ(part<QLineEdit>("maxThreadsStepperText").text(), u"3"_s);
    queue().panel()->makeKeyAndOrderFront();
    queue().tableView()->reloadData();
    ASSERT_TRUE(runUntil([&] { return pace.value() == 3; }));
    QTest::keyClick(&pace, Qt::Key_Up);
    runPosted();
    EXPECT_EQ(stepper.value(), 4);
    QTest::keyClick(&stepper, Qt::Key_Up);
    EXPECT_EQ(queue().maxThreads(), 5);
}

TEST_F(PreferencesWindowTest, ATypedNumberCountsOnceItIsEntered)
{
    auto& stepper = part<QSpinBox>("maxThreadsStepper");
    stepper.selectAll();
    QTest::keyClicks(&stepper, u"7"_s);
    EXPECT_EQ(queue().maxThreads(), 2);
    QTest::keyClick(&stepper, Qt::Key_Return);
    runPosted();
    EXPECT_EQ(queue().maxThreads(), 7);
    EXPECT_EQ(part<QLineEdit>("maxThreadsStepperText").text(), u"7"_s);
}

TEST_F(PreferencesWindowTest, ThePreviewFollowsEachKeyAndAnEmptyFieldBreaksNothing)
{
    press("MetadataItem");
    auto& format = part<QLineEdit>("shnlenTrackListingFormat");
    format.setFocus();
    format.selectAll();
    QTest::keyClicks(&format, u"%name - %time"_s);
    runPosted();
    EXPECT_EQ(part<QLabel>("currentFormat").text(), u"FileName - 01:00:00\n"_s);
    EXPECT_EQ(saved(u"shntoolNamesFormat"_s), u"%name - %time"_s);
    format.selectAll();
    QTest::keyClick(&format, Qt::Key_Delete);
    runPosted();
    EXPECT_EQ(saved(u"shntoolNamesFormat"_s), QString());
    press("restoreMetadataButton");
    EXPECT_EQ(format.text(), u"%number. %name %time"_s);
    EXPECT_EQ(part<QLabel>("currentFormat").text(), u"01. FileName 01:00:00\n"_s);
}

TEST_F(PreferencesWindowTest, WhatTheMainWindowSaysOfDeletionFollows)
{
    tool(u"flac"_s, "exit 0\n");
    add({file(u"a.flac"_s)});
    tab().deleteOriginalsButton->click();
    const auto says = [this](const QString& words) {
        return runUntil([&] { return widget<OutlookLine>("outlook").text().contains(words); });
    };
    EXPECT_TRUE(says(u"for good"_s));
    auto cells = part<QWidget>("trashOrDelete").findChildren<QAbstractButton*>();
    ASSERT_EQ(cells.size(), 2);
    QTest::mouseClick(cells[1], Qt::LeftButton);
    EXPECT_EQ(saved(u"trashOrDelete"_s), u"1"_s);
    EXPECT_TRUE(says(u"to the trash"_s));
    auto& beside = widget<QComboBox>("deletionChoice");
    EXPECT_EQ(beside.currentText(), u"to the trash"_s);
    beside.setFocus();
    QTest::keyClick(&beside, Qt::Key_Up);
    EXPECT_EQ(saved(u"trashOrDelete"_s), u"0"_s);
    EXPECT_TRUE(says(u"for good"_s));
    EXPECT_TRUE(runUntil([&] { return static_cast<QRadioButton*>(cells[0])->isChecked(); }));
}

TEST_F(PreferencesWindowTest, WhatStandsAgainstTheSettingsIsThereInWholeLines)
{
    auto& note = part<QLabel>("settingsNote");
    const int height = preferences().height();
    EXPECT_EQ(note.height(), 0);
    UserDefaults::standard().reopen(u"/proc/no/such/place/for/the/settings/of/this/program/settings.ini"_s);
    QTest::keyClick(&part<QSpinBox>("maxThreadsStepper"), Qt::Key_Up);
    ASSERT_TRUE(runUntil([&] { return note.text().contains(u"could not be saved"); }));
    ASSERT_TRUE(runUntil([&] { return preferences().height() == height + note.height(); }));
    EXPECT_GE(note.height(), 2 * note.fontMetrics().height());
    EXPECT_EQ(note.height(), note.heightForWidth(note.width()));
    const QRect button = part<QWidget>("restoreGeneralButton").geometry();
    EXPECT_LE(button.bottom(), part<QStackedWidget>("preferencesTab").height());
    UserDefaults::standard().reopen(pathOf(u"settings.ini"_s));
    QTest::keyClick(&part<QSpinBox>("maxThreadsStepper"), Qt::Key_Down);
    ASSERT_TRUE(runUntil([&] { return preferences().height() == height; }));
}

TEST_F(PreferencesWindowTest, ADamagedFileOfSettingsIsToldAtTheStart)
{
    QFile settings(pathOf(u"damaged.ini"_s));
    ASSERT_TRUE(settings.open(QFile::WriteOnly));
    settings.write("[General]\nhalf a line\n");
    settings.close();
    UserDefaults::standard().reopen(settings.fileName());
    WindowProgram next;
    ScriptedPanels answers;
    answers.answerAlert(alertReply::defaultButton);
    next.present();
    ASSERT_TRUE(runUntil([&] { return answers.alerts().size() == 1; }));
    EXPECT_EQ(answers.alerts()[0].title, u"Settings"_s);
    EXPECT_TRUE(answers.alerts()[0].message.contains(u"are damaged"_s));
}

} // namespace
} // namespace zolt::test
