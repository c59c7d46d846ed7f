#include "ui/pages/CommandPage.h"

#include "support/Gate.h"
#include "ui/Drags.h"
#include "ui/Mnemonics.h"
#include "ui/WindowFixture.h"
#include "ui/files/FileListView.h"
#include "ui/files/FilesPanel.h"
#include "ui/pages/DestinationField.h"
#include "ui/pages/OutlookLine.h"
#include "ui_DecodeChoices.h"

#include <QLineEdit>
#include <QRadioButton>
#include <QTabWidget>

namespace zolt::test {
namespace {

using namespace Qt::StringLiterals;
using testing::ElementsAre;

class CommandPageTest : public WindowTest
{
protected:
    OutlookLine& outlook() { return widget<OutlookLine>("outlook"); }
    bool outlookHas(const QString& text)
    {
        return runUntil([&] { return outlook().text().contains(text); });
    }
    void press(const char* name)
    {
        QTest::mouseClick(&widget<QPushButton>(name), Qt::LeftButton);
        runPosted();
    }
    QLineEdit& destination() { return widget<QLineEdit>("destinationField"); }
    FilesPanel& files() { return widget<FilesPanel>("filesPanel"); }
    void besideSources(bool on)
    {
        tab().sourceDecodeButton->setState(on);
        EXPECT_TRUE(runUntil([&] { return destination().isEnabled() != on; }));
    }
};

TEST_F(CommandPageTest, EveryPageHasEachMnemonicOnce)
{
    auto& tabs = widget<QTabWidget>("tabView");
    for (int index = 0; index < tabs.count(); ++index) {
        QSet<QChar> seen{u'f', u'e', u'v', u'q', u'h'};
        for (const auto* button : tabs.widget(index)->findChildren<QAbstractButton*>()) {
            const QChar key = mnemonicOf(button->text());
            if (key.isNull()) continue;
            EXPECT_FALSE(seen.contains(key))
                << tabs.tabText(index).toStdString() << ": " << button->text().toStdString();
            seen += key;
        }
    }
}

TEST_F(CommandPageTest, ATypedFolderAnswersWhatTheCommandAsksFor)
{
    besideSources(false);
    destination().setFocus();
    QTest::keyClicks(&destination(), folder_.path());
    EXPECT_EQ(tab().destination(), folder_.path());
    destination().clear();
    EXPECT_EQ(tab().destination(), OptionalText());
}

TEST_F(CommandPageTest, AFolderIsChosenOrMeantFromHome)
{
    besideSources(false);
    panels_.answerOpenPanel(QStringList{folder_.path()});
    press("chooseFolderButton");
    EXPECT_EQ(destination().text(), folder_.path());
    destination().setText(u"~/music"_s);
    EXPECT_EQ(tab().destination(), QDir::homePath() + u"/music"_s);
}

TEST_F(CommandPageTest, AFolderThatIsNotThereIsMadeOnAPress)
{
    besideSources(false);
    add({file(u"a.flac"_s)});
    auto& button = widget<QPushButton>("makeFolderButton");
    destination().setText(folder_.path());
    EXPECT_TRUE(runUntil([this] { return outlook().text().contains(u" in "); }));
    EXPECT_FALSE(button.isEnabled()) << "it is there";
    destination().setText(pathOf(u"new/one"_s));
    ASSERT_TRUE(runUntil([&] { return button.isEnabled(); }));
    EXPECT_TRUE(outlook().text().contains(u"is not there"));
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_TRUE(QFileInfo(pathOf(u"new/one"_s)).isDir());
    EXPECT_TRUE(runUntil([this] { return !outlook().text().contains(u"is not there"); }));
    EXPECT_FALSE(button.isEnabled());
}

TEST_F(CommandPageTest, AFolderThatCannotBeMadeIsTold)
{
    besideSources(false);
    add({file(u"a.flac"_s)});
    destination().setText(pathOf(u"a.flac/below"_s)); // a file stands in the way
    auto& button = widget<QPushButton>("makeFolderButton");
    ASSERT_TRUE(runUntil([&] { return button.isEnabled(); }));
    panels_.answerAlert(alertReply::defaultButton);
    QTest::mouseClick(&button, Qt::LeftButton);
    ASSERT_EQ(panels_.alerts().size(), 1U);
    EXPECT_TRUE(panels_.alerts()[0].message.contains(u"a.flac/below"));
}

TEST_F(CommandPageTest, AFolderIsDroppedOnTheFieldAndAFileGoesToTheList)
{
    besideSources(false);
    EXPECT_EQ(dropOn(destination(), {folder_.path()}), Qt::CopyAction);
    EXPECT_EQ(tab().destination(), folder_.path());
    EXPECT_EQ(dropOn(destination(), {file(u"a.flac"_s)}), Qt::CopyAction);
    EXPECT_EQ(tab().destination(), folder_.path());
    EXPECT_TRUE(listBecomes(1));
}

TEST_F(CommandPageTest, ADropOnAnyPlaceOfThePageIsTheListsAndACopy)
{
    auto& page = *outlook().parentWidget();
    EXPECT_TRUE(dragOver(page, {file(u"a.flac"_s)}));
    EXPECT_TRUE(runUntil([this] { return files().list().dragText() == u"Drop to add 1 file"; }));
    dragAway(page);
    EXPECT_EQ(files().list().dragText(), QString());
    EXPECT_EQ(dropOn(page, {pathOf(u"a.flac"_s)}), Qt::CopyAction);
    EXPECT_TRUE(listBecomes(1));
}

TEST_F(CommandPageTest, BesideTheSourcesTheFieldSaysWhyItIsGrey)
{
    besideSources(true);
    EXPECT_FALSE(destination().isEnabled());
    EXPECT_TRUE(widget<QWidget>("destination").toolTip().contains(u"beside"));
}

TEST_F(CommandPageTest, FilesWhoseOutputsExistAreLeftOutAndStay)
{
    tool(u"flac"_s, "exit 0\n");
    file(u"a.wav"_s);
    add({file(u"a.flac"_s), file(u"b.flac"_s)});
    ASSERT_TRUE(outlookHas(u"a.wav exists"_s)) << outlook().text().toStdString();
    press("leaveOutButton");
    ASSERT_TRUE(outlookHas(u"1 file left out"_s));
    EXPECT_TRUE(outlookHas(u"1 FLAC file to WAV"_s));
    press("commandButton");
    EXPECT_THAT(tab().fileNames().copy(), ElementsAre(pathOf(u"a.flac"_s)));
    EXPECT_EQ(queue().taskArray().size(), 1U);
    settle();
}

TEST_F(CommandPageTest, FilesThatAreLeftOutCanBeTakenBack)
{
    tool(u"flac"_s, "exit 0\n");
    file(u"a.wav"_s);
    add({file(u"a.flac"_s)});
    ASSERT_TRUE(outlookHas(u"a.wav exists"_s));
    press("leaveOutButton");
    ASSERT_TRUE(outlookHas(u"left out"_s));
    panels_.answerAlert(alertReply::defaultButton);
    press("commandButton");
    EXPECT_EQ(panels_.alerts()[0].title, u"All files are left out"_s);
    press("takeBackButton");
    EXPECT_TRUE(outlookHas(u"a.wav exists"_s));
}

TEST_F(CommandPageTest, WhileFilesComeInTheCommandWaits)
{
    tool(u"flac"_s, "exit 0\n");
    file(u"show/b.flac"_s);
    file(u"show/c.flac"_s);
    add({file(u"a.flac"_s)});
    auto& button = widget<QPushButton>("commandButton");
    Gate gate;
    tab().addFilesAccepted({pathOf(u"show"_s)}, [&](const QString& path) { return gate.pass(path); });
    EXPECT_TRUE(runUntil([&] { return tab().fileNames().count() == 2 && !button.isEnabled(); }));
    EXPECT_EQ(button.toolTip(), u"Files are still coming in"_s);
    QTest::keyClick(&window(), Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(queue().taskCount(), 0);
    EXPECT_EQ(tab().fileNames().count(), 2);
    gate.open();
    EXPECT_TRUE(runUntil([&] { return button.isEnabled(); }));
    EXPECT_EQ(tab().fileNames().count(), 3);
}

TEST_F(CommandPageTest, TheFilesThatTheLineMeansAreLeftOutThoughTheListHasChanged)
{
    tool(u"flac"_s, "exit 0\n");
    file(u"b.wav"_s);
    add({file(u"b.flac"_s), file(u"c.flac"_s)});
    ASSERT_TRUE(outlookHas(u"b.wav exists"_s));
    tab().addFile(file(u"a.flac"_s)); // ahead of it, and the line is not yet asked anew
    QTest::mouseClick(&widget<QPushButton>("leaveOutButton"), Qt::LeftButton);
    ASSERT_TRUE(outlookHas(u"1 file left out"_s));
    press("commandButton");
    EXPECT_THAT(tab().fileNames().copy(), ElementsAre(pathOf(u"b.flac"_s)));
    settle();
}

TEST_F(CommandPageTest, RowsThatAProblemIsAboutAreMarkedAndFound)
{
    tool(u"flac"_s, "exit 0\n");
    file(u"b.wav"_s);
    add({file(u"a.flac"_s), file(u"b.flac"_s)});
    ASSERT_TRUE(outlookHas(u"b.wav exists"_s));
    auto& list = files().list();
    const auto sign = [&](int row) { return list.model()->index(row, 0).data(Qt::DecorationRole); };
    EXPECT_FALSE(sign(0).isValid());
    EXPECT_TRUE(sign(1).isValid());
    EXPECT_TRUE(list.model()->index(1, 0).data(Qt::ToolTipRole).toString().contains(u"b.wav exists"));
    press("showProblemButton");
    EXPECT_THAT(list.selectedRowNumbers(), ElementsAre(1));
    EXPECT_TRUE(list.hasFocus());
    EXPECT_TRUE(widget<QLabel>("countLabel").toolTip().contains(u"b.wav exists") ||
                widget<QLabel>("countLabel").text().contains(u"b.wav exists"));
}

TEST_F(CommandPageTest, ALineOfTheTabsOwnFollowsTheList)
{
    PageForm form{u"&Go"_s, [](QWidget& choices) {
                      Ui::DecodeChoices().setupUi(&choices);
                      (new QLabel(&choices))->setObjectName(u"own"_s);
                  }};
    DecodeTab other;
    other.zoltController = &controller();
    other.tabViewItem = std::make_shared<TabViewItem>(u"decode"_s);
    CommandPage page(other, form);
    page.withLiveLine(u"own"_s, [&other] {
        return [count = other.fileNames().count()](const std::atomic<bool>&) { return QString::number(count); };
    });
    const auto* const own = page.findChild<QLabel*>(u"own"_s);
    EXPECT_TRUE(runUntil([&] { return own->text() == u"0"; }));
    other.addFile(u"/a.flac"_s);
    EXPECT_TRUE(runUntil([&] { return own->text() == u"1"; }));
    EXPECT_THROW(page.withLiveLine(u"none"_s, {}), AssertionException);
}

TEST_F(CommandPageTest, TheWordsOnTheActionMayFollowTheChoices)
{
    DecodeTab other;
    other.zoltController = &controller();
    other.tabViewItem = std::make_shared<TabViewItem>(u"decode"_s);
    CommandPage page(other, {u"&Go"_s, [](QWidget& choices) { Ui::DecodeChoices().setupUi(&choices); }});
    page.withCommand([&other] { return u"To "_s + other.outputFormat(); });
    EXPECT_EQ(page.commandName(), u"To WAV"_s);
    other.outputFormatMatrix->selectTitle(u"AIFF"_s);
    EXPECT_TRUE(runUntil([&] { return page.commandName() == u"To AIFF"; }));
}

} // namespace
} // namespace zolt::test
