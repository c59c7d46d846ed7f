#include "ui/panels/QtPanels.h"

#include "engine/StatusPanelController.h"
#include "platform/threads/DetachedThreads.h"
#include "shell/ZOLTStringGetterPanel.h"
#include "support/EventLoop.h"
#include "ui/QtDesktop.h"
#include "ui/QtInterfaces.h"
#include "ui/panels/AlertContext.h"
#include "ui/panels/StatusPanelWindow.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QProgressBar>
#include <QTest>
#include <QTimer>

namespace zolt::test {
namespace {

using namespace Qt::StringLiterals;

class PanelsTest : public testing::Test
{
protected:
    PanelsTest() { installPanels(&panels_); }
    ~PanelsTest() override { installPanels(nullptr); }

    /// Has the person act once a modal window is up.
    void whenShown(std::function<void(QWidget&)> person)
    {
        auto* const watch = new QTimer(&owner_);
        QObject::connect(watch, &QTimer::timeout, watch, [watch, person] {
            QWidget* const shown = QApplication::activeModalWidget();
            if (!shown || !shown->isVisible()) return;
            watch->stop();
            runPosted(); // what the program put into the panel's fields
            person(*shown);
        });
        watch->start(5);
    }
    void pressWhenShown(Qt::Key key)
    {
        whenShown([key](QWidget& shown) { QTest::keyClick(&shown, key); });
    }
    QObject owner_;
    QtPanels panels_;
    QtInterfaces interfaces_;
};

TEST_F(PanelsTest, EnterPressesTheDefaultButton)
{
    pressWhenShown(Qt::Key_Return);
    EXPECT_EQ(panels_.runAlert(u"Really?"_s, QString(), u"Yes"_s, u"No"_s), alertReply::defaultButton);
}

TEST_F(PanelsTest, EscapeIsTheAnswerThatStartsNothing)
{
    pressWhenShown(Qt::Key_Escape);
    EXPECT_EQ(panels_.runAlert(u"Delete?"_s, QString(), u"Yes"_s, u"No"_s), alertReply::alternateButton);
    pressWhenShown(Qt::Key_Escape);
    EXPECT_EQ(panels_.runAlert(u"Quit?"_s, QString(), u"No"_s, u"Yes"_s), alertReply::defaultButton);
    pressWhenShown(Qt::Key_Escape);
    EXPECT_EQ(panels_.runAlert(u"So it is"_s, QString(), u"OK"_s), alertReply::defaultButton);
}

TEST_F(PanelsTest, OnlyAQuestionWithoutAMessageSaysWhatItIsAbout)
{
    const AlertContext context(u"3 files go"_s);
    QStringList said;
    const auto note = [&](QWidget& shown) {
        said += dynamic_cast<QMessageBox&>(shown).informativeText();
        QTest::keyClick(&shown, Qt::Key_Return);
    };
    whenShown(note);
    panels_.runAlert(u"Really?"_s, QString(), u"Yes"_s, u"No"_s);
    whenShown(note);
    panels_.runAlert(u"Really?"_s, u"own"_s, u"Yes"_s, u"No"_s);
    whenShown(note);
    panels_.runAlert(u"Some files were skipped"_s, QString(), u"OK"_s);
    EXPECT_EQ(said, QStringList({u"3 files go"_s, u"own"_s, QString()}));
}

TEST_F(PanelsTest, AnAlertShowsItsTextsAsTheyStand)
{
    whenShown([](QWidget& shown) {
        auto& box = dynamic_cast<QMessageBox&>(shown);
        EXPECT_EQ(box.text(), u"<b>a</b>.flac"_s);
        EXPECT_EQ(box.informativeText(), u"more"_s);
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.buttons().size(), 3);
        QTest::mouseClick(box.buttons().last(), Qt::LeftButton);
    });
    EXPECT_NE(panels_.runAlert(u"<b>a</b>.flac"_s, u"more"_s, u"One"_s, u"Two"_s, u"Three"_s),
              alertReply::alternateButton + 100);
}

TEST_F(PanelsTest, AnotherThreadWaitsForItsAnswer)
{
    pressWhenShown(Qt::Key_Return);
    int reply = 100;
    detachThread([&] { reply = panels_.runAlert(u"Really?"_s, QString(), u"Yes"_s, u"No"_s); });
    waitForDetachedThreads();
    EXPECT_EQ(reply, alertReply::defaultButton);
}

TEST_F(PanelsTest, TheOpenPanelIsSetUpAsAsked)
{
    OpenPanelRequest request;
    request.title = u"Choose files for processing"_s;
    request.prompt = u"Add Files"_s;
    request.allowsMultipleSelection = true;
    whenShown([](QWidget& shown) {
        auto& dialog = dynamic_cast<QFileDialog&>(shown);
        EXPECT_EQ(dialog.windowTitle(), u"Choose files for processing"_s);
        EXPECT_EQ(dialog.fileMode(), QFileDialog::ExistingFiles);
        EXPECT_EQ(dialog.labelText(QFileDialog::Accept), u"Add Files"_s);
        dialog.reject();
    });
    EXPECT_FALSE(panels_.openPanel(request).has_value());
}

TEST_F(PanelsTest, TheOpenPanelNamesItsTypesWithoutTheirPatterns)
{
    OpenPanelRequest request;
    request.fileTypes = QStringList{u"cue"_s, u"txt"_s};
    whenShown([](QWidget& shown) {
        auto& dialog = dynamic_cast<QFileDialog&>(shown);
        EXPECT_EQ(dialog.nameFilters(), QStringList{u"CUE and TXT files (*.[cC][uU][eE] *.[tT][xX][tT])"_s});
        EXPECT_TRUE(dialog.testOption(QFileDialog::HideNameFilterDetails));
        dialog.reject();
    });
    EXPECT_FALSE(panels_.openPanel(request).has_value());
}

TEST_F(PanelsTest, TheFolderPanelGivesTheFolderChosen)
{
    const QTemporaryDir folder;
    OpenPanelRequest request;
    request.canChooseFiles = false;
    request.canChooseDirectories = true;
    request.canCreateDirectories = true;
    whenShown([&](QWidget& shown) {
        auto& dialog = dynamic_cast<QFileDialog&>(shown);
        EXPECT_EQ(dialog.fileMode(), QFileDialog::Directory);
        EXPECT_FALSE(dialog.testOption(QFileDialog::ReadOnly));
        dialog.findChild<QLineEdit*>()->setText(folder.path());
        QTest::keyClick(dialog.findChild<QLineEdit*>(), Qt::Key_Return);
    });
    EXPECT_EQ(panels_.openPanel(request), QStringList{folder.path()});
}

TEST_F(PanelsTest, APanelForFilesOpensWhereTheWorkIsAndThenWhereTheLastWasLeft)
{
    const QTemporaryDir show, other;
    QString work = show.path();
    panels_.setFolderOfWork([&work] { return work; });
    const auto expectIn = [this](const QString& folder, const OpenPanelRequest& request = {}) {
        whenShown([folder](QWidget& shown) {
            auto& dialog = dynamic_cast<QFileDialog&>(shown);
            EXPECT_EQ(dialog.directory().path(), folder);
            dialog.reject();
        });
        panels_.openPanel(request);
    };
    expectIn(show.path());
    whenShown([&](QWidget& shown) {
        auto* const name = shown.findChild<QLineEdit*>();
        name->setText(other.filePath(u"sums.md5"_s)); // a whole path, without going there
        QTest::keyClick(name, Qt::Key_Return);
    });
    EXPECT_TRUE(panels_.savePanel({}).has_value());
    expectIn(other.path());
    work = other.path();
    expectIn(other.path());
    work = show.path();
    expectIn(show.path());
    expectIn(QFileInfo(show.path()).path(), {.canChooseFiles = false, .canChooseDirectories = true});
    expectIn(show.path(), {.canChooseFiles = false, .canChooseDirectories = true, .canCreateDirectories = true});
}

TEST_F(PanelsTest, TheSavePanelProposesTheName)
{
    whenShown([](QWidget& shown) {
        auto& dialog = dynamic_cast<QFileDialog&>(shown);
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptSave);
        EXPECT_EQ(dialog.findChild<QLineEdit*>()->text(), u"show.md5"_s);
        dialog.reject();
    });
    EXPECT_FALSE(panels_.savePanel({std::nullopt, u"show.md5"_s}).has_value());
}

TEST_F(PanelsTest, TheStringPanelGivesWhatIsTyped)
{
    ZOLTStringGetterPanel panel;
    whenShown([](QWidget& shown) {
        EXPECT_EQ(shown.windowTitle(), u"Enter a name"_s); // its own, whatever was asked for
        EXPECT_EQ(shown.findChild<QLabel*>(u"messageText"_s)->text(), u"Batch name:"_s);
        auto* const field = shown.findChild<QLineEdit*>();
        EXPECT_EQ(field->text(), u"show"_s);
        QTest::keyClicks(field, u"1977"_s); // over the selected text
        QTest::keyClick(field, Qt::Key_Return);
    });
    EXPECT_EQ(panel.runPanelWithTitleMessageInitialString(u"Title"_s, u"Batch name:"_s, u"show"_s), u"1977"_s);
}

TEST_F(PanelsTest, TheStringPanelKeepsTheInitialTextAndGivesNothingOnEscape)
{
    ZOLTStringGetterPanel panel;
    pressWhenShown(Qt::Key_Return);
    EXPECT_EQ(panel.runPanelWithTitleMessageInitialString(std::nullopt, std::nullopt, u"show"_s), u"show"_s);
    pressWhenShown(Qt::Key_Escape);
    EXPECT_EQ(panel.runPanelWithTitleMessageInitialString(std::nullopt, std::nullopt, std::nullopt), std::nullopt);
    whenShown([](QWidget& shown) { shown.close(); });
    EXPECT_EQ(panel.runPanelWithTitleMessageInitialString(std::nullopt, std::nullopt, std::nullopt), std::nullopt);
}

TEST_F(PanelsTest, TheStatusPanelShowsItsControls)
{
    StatusPanelController controller;
    controller.setText(u"Reading"_s);
    controller.setDeterminateMax(0, 50);
    controller.setProgress(25);
    controller.window()->makeKeyAndOrderFront();
    runPosted();
    QWidget& window = *interfaces_.windows().back();
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.findChild<QLabel*>(u"textField"_s)->text(), u"Reading"_s);
    auto& bar = *window.findChild<QProgressBar*>();
    EXPECT_EQ(bar.value() * 2, bar.maximum());
    controller.setInDeterminate();
    controller.startAnimation(nullptr);
    runPosted();
    EXPECT_EQ(bar.maximum(), 0);
    controller.window()->close();
    runPosted();
    EXPECT_FALSE(window.isVisible());
}

TEST(QtDesktopTest, WhatOtherThreadsAskArrivesOnTheMainThread)
{
    QtDesktop desktop;
    int terminations = 0;
    desktop.setTerminateHandler([&] { ++terminations; });
    detachThread([&] {
        desktop.setBadgeLabel(u"3"_s);
        desktop.requestUserAttention(10);
        desktop.terminate();
    });
    waitForDetachedThreads();
    runPosted();
    EXPECT_EQ(terminations, 1);
}

TEST(QtDesktopTest, NothingArrivesAfterItsEnd)
{
    {
        QtDesktop desktop;
        desktop.setTerminateHandler([] { ADD_FAILURE(); });
        desktop.terminate();
        desktop.setBadgeLabel(std::nullopt);
    }
    runPosted();
}

} // namespace
} // namespace zolt::test
