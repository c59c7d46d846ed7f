#include "ShellFixture.h"

#include "platform/errors/Exceptions.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

using BaseTabs = ShellTest;

namespace {

/// Panels that break when a folder is asked for.
class FaultyPanels : public Panels
{
public:
    int runAlert(const QString&, const QString&, const QString&, const QString&, const QString&) override { return 0; }
    std::optional<QStringList> openPanel(const OpenPanelRequest&) override
    {
        ++asked;
        throw PlatformException(u"PanelFault"_s, u"the panel broke"_s);
    }
    OptionalText savePanel(const SavePanelRequest&) override { return std::nullopt; }
    void runModalForWindow(Window&) override {}
    void stopModal() override {}
    int asked = 0;
};

/// Its command keeps the list itself, as a task does that works on it later.
class HoldingTab : public BaseTab
{
public:
    explicit HoldingTab(ZOLTController& controller) { controller.addTab(*this, Constants::FIX_SBE); }
    void executeCommand(Sender) override
    {
        if (question) question();
        held = fileList();
    }
    std::function<void()> question;
    std::shared_ptr<FileList> held;
};

} // namespace

TEST_F(BaseTabs, GoodFilesOfAMixAreListedSortedAndTheRestIsTold)
{
    file(u"show/d2.flac"_s);
    file(u"show/d1.FLAC"_s);
    file(u"show/notes.txt"_s);
    panels_.answerAlert(1);
    decode.addFiles({folder()});
    EXPECT_EQ(decode.fileNames().copy(), QStringList({folder() + u"/show/d1.FLAC"_s, folder() + u"/show/d2.flac"_s}));
    ASSERT_EQ(panels_.alerts().size(), 1U);
    EXPECT_EQ(panels_.alerts()[0].title, u"Some files types were not recognized by this tab and were skipped"_s);
    EXPECT_EQ(panels_.alerts()[0].message, QString());
    EXPECT_EQ(panels_.alerts()[0].buttons, QStringList{u"OK"_s});
    EXPECT_EQ(decode.additions, 1);
    EXPECT_EQ(decode.tableViewObjectValueForTableColumnRow(0, 0), u"d1.FLAC"_s);
    EXPECT_EQ(decode.numberOfRowsInTableView(), 2);
}

TEST_F(BaseTabs, FolderOfUnrecognisedFilesOnAnEmptyTab)
{
    file(u"show/notes.txt"_s);
    panels_.answerAlert(1);
    decode.addFiles({folder()});
    EXPECT_EQ(panels_.alerts()[0].title, u"File types not supported by this tab"_s);
    EXPECT_TRUE(decode.fileNames().isEmpty());
}

TEST_F(BaseTabs, RefusedDropOnATabThatHoldsFilesGetsTheSecondText)
{
    decode.addFiles({u"/a.flac"_s});
    panels_.answerAlert(1);
    decode.addFiles({u"/b.txt"_s});
    EXPECT_EQ(panels_.alerts()[0].title, u"Some files types were not recognized by this tab and were skipped"_s);
}

TEST_F(BaseTabs, SameFileTwiceIsListedTwice)
{
    decode.addFiles({u"/a.flac"_s});
    decode.addFiles({u"/a.flac"_s});
    EXPECT_EQ(decode.fileNames().count(), 2);
}

TEST_F(BaseTabs, OrderIsLiteralAndCaseSensitiveOnTheWholePath)
{
    decode.addFiles({u"/b/1.flac"_s, u"/a/2.flac"_s, u"/a/10.flac"_s, u"/B/1.flac"_s});
    EXPECT_EQ(decode.fileNames().copy(),
              QStringList({u"/B/1.flac"_s, u"/a/10.flac"_s, u"/a/2.flac"_s, u"/b/1.flac"_s}));
}

TEST_F(BaseTabs, EachAdditionAndClearingIsShownAndAdditionsAreTold)
{
    const auto reloads = [this] { return decode.tableView->reloads(); };
    unsigned before = reloads();
    decode.addFile(u"/b.txt"_s); // judged by nobody
    decode.addFile(u"/a.flac"_s);
    EXPECT_EQ(decode.fileNames().copy(), QStringList({u"/a.flac"_s, u"/b.txt"_s}));
    EXPECT_EQ(decode.additions, 2);
    EXPECT_GE(reloads(), before + 2);
    before = reloads();
    decode.clearButtonClick(nullptr);
    EXPECT_TRUE(decode.fileNames().isEmpty());
    EXPECT_GT(reloads(), before);
}

TEST_F(BaseTabs, ClearingAnEmptyListDoesNothingVisible)
{
    decode.clearButtonClick(nullptr);
    EXPECT_TRUE(decode.fileNames().isEmpty());
    EXPECT_TRUE(panels_.alerts().empty());
}

TEST_F(BaseTabs, SystemFileIsSkippedInAFolderAndTakenByItself)
{
    file(u"show/.DS_Store"_s);
    file(u"show/.TOC.plist"_s);
    file(u"show/a.flac"_s);
    util.addFiles({folder() + u"/show"_s});
    EXPECT_EQ(util.fileNames().copy(), QStringList{folder() + u"/show/a.flac"_s});
    util.addFiles({folder() + u"/show/.DS_Store"_s});
    EXPECT_EQ(util.fileNames().count(), 2);
    panels_.answerAlert(1); // judged like any file: it has no extension, and the tags tab takes none without
    tags.addFiles({folder() + u"/show/.DS_Store"_s});
    EXPECT_TRUE(tags.fileNames().isEmpty());
}

TEST_F(BaseTabs, FilesOfAFolderAreJudgedFirstAndThenSortedFromWhatFileManagersLeave)
{
    const QString one = file(u"show/d1/a.flac"_s);
    file(u"show/notes.txt"_s);
    file(u"show/.DS_Store"_s);
    file(u"show/d1/.TOC.plist"_s);
    QSet<QString> refused;
    EXPECT_EQ(decode.getFilesFileManagerBadExtensions(folder(), refused), QStringList{one});
    EXPECT_EQ(refused, QSet<QString>({u"txt"_s, u"plist"_s}));
    EXPECT_EQ(decode.getFilesFileManagerBadExtensions(u"/gone/b.FLAC"_s, refused), QStringList{u"/gone/b.FLAC"_s});
}

TEST_F(BaseTabs, FolderThatLinksToItselfIsWalkedOnce)
{
    file(u"show/a.flac"_s);
    ASSERT_TRUE(QFile::link(folder() + u"/show"_s, folder() + u"/show/again"_s));
    decode.addFiles({folder() + u"/show"_s});
    EXPECT_EQ(decode.fileNames().copy(), QStringList{folder() + u"/show/a.flac"_s});
}

TEST_F(BaseTabs, LinkToAnotherFolderIsFollowed)
{
    file(u"one/a.flac"_s);
    file(u"two/b.flac"_s);
    ASSERT_TRUE(QFile::link(folder() + u"/two"_s, folder() + u"/one/link"_s));
    decode.addFiles({folder() + u"/one"_s});
    EXPECT_EQ(decode.fileNames().count(), 2);
}

TEST_F(BaseTabs, FileWithoutExtensionIsTakenByDecodeAndRefusedByTags)
{
    decode.addFiles({u"/plain"_s});
    EXPECT_EQ(decode.fileNames().count(), 1);
    panels_.answerAlert(1);
    tags.addFiles({u"/plain"_s});
    EXPECT_TRUE(tags.fileNames().isEmpty());
}

TEST_F(BaseTabs, AddButtonAsksForFilesAndAddsThem)
{
    panels_.answerOpenPanel(QStringList{u"/a.flac"_s});
    decode.addButtonClick(nullptr);
    const OpenPanelRequest request = panels_.openRequests()[0];
    EXPECT_EQ(request.title, u"Choose files for processing"_s);
    EXPECT_EQ(request.prompt, u"Add Files"_s);
    EXPECT_TRUE(request.canChooseFiles && request.allowsMultipleSelection && request.treatsFilePackagesAsDirectories);
    EXPECT_FALSE(request.canChooseDirectories);
    EXPECT_EQ(decode.fileNames().count(), 1);
    panels_.answerOpenPanel(std::nullopt);
    decode.addButtonClick(nullptr);
    EXPECT_EQ(decode.fileNames().count(), 1);
}

TEST_F(BaseTabs, OutputFolderIsChosenOrNot)
{
    panels_.answerOpenPanel(QStringList{u"/out"_s});
    EXPECT_EQ(decode.chooseOutputFolder(), u"/out"_s);
    const OpenPanelRequest request = panels_.openRequests()[0];
    EXPECT_EQ(request.title, u"Choose output directory"_s);
    EXPECT_EQ(request.prompt, QString());
    EXPECT_TRUE(request.canChooseDirectories && request.canCreateDirectories);
    EXPECT_FALSE(request.canChooseFiles || request.allowsMultipleSelection || request.treatsFilePackagesAsDirectories);
    panels_.answerOpenPanel(std::nullopt);
    EXPECT_EQ(decode.chooseOutputFolder(), std::nullopt);
}

TEST_F(BaseTabs, ADestinationAnswersForTheFolderPanel)
{
    decode.setDestination(u"/set"_s);
    EXPECT_EQ(decode.chooseOutputFolder(), u"/set"_s);
    EXPECT_TRUE(panels_.openRequests().empty());
    decode.setDestination(std::nullopt);
    panels_.answerOpenPanel(QStringList{u"/out"_s});
    EXPECT_EQ(decode.chooseOutputFolder(), u"/out"_s);
}

TEST_F(BaseTabs, AnAddedTabIsConnectedAndAwake)
{
    PlainTab added;
    ZOLTController fresh;
    fresh.addTab(added, Constants::FIX_SBE);
    EXPECT_EQ(fresh.fixTab, &added);
    EXPECT_EQ(added.zoltController, &fresh);
    EXPECT_EQ(fresh.tabView->items().back(), added.tabViewItem);
    EXPECT_EQ(added.tabViewItem->label(), Constants::FIX_SBE);
    EXPECT_TRUE(added.tableView->acceptsFileDrops());
}

TEST_F(BaseTabs, FaultInTheFolderPanelCountsAsNoFolder)
{
    FaultyPanels faulty;
    installPanels(&faulty);
    EXPECT_EQ(decode.chooseOutputFolder(), std::nullopt);
    EXPECT_EQ(faulty.asked, 1);
    installPanels(&panels_);
}

TEST_F(BaseTabs, SavePanelProposesTheNameAndTakesTheTitle)
{
    panels_.answerSavePanel(u"/out/list.md5"_s);
    EXPECT_EQ(decode.openSavePanelTitle(u"list.md5"_s, u"Save it"_s), u"/out/list.md5"_s);
    EXPECT_EQ(panels_.saveRequests()[0].title, u"Save it"_s);
    EXPECT_EQ(panels_.saveRequests()[0].fileName, u"list.md5"_s);
    panels_.answerSavePanel(std::nullopt);
    EXPECT_EQ(decode.openSavePanelTitle(u"x"_s, std::nullopt), std::nullopt);
}

TEST_F(BaseTabs, DropsAreCopiesWhereverTheyFall)
{
    decode.awakeFromNib();
    EXPECT_TRUE(decode.tableView->acceptsFileDrops());
    EXPECT_EQ(decode.tableViewValidateDropProposedRowProposedDropOperation(3, 0), 1);
    EXPECT_TRUE(decode.tableViewAcceptDropRowDropOperation({u"/a.flac"_s}, 7, 0));
    EXPECT_EQ(decode.fileNames().count(), 1);
}

TEST_F(BaseTabs, RowsCanBeTakenOut)
{
    decode.addFiles({u"/a.flac"_s, u"/b.flac"_s, u"/c.flac"_s});
    decode.removeRows({2, 0});
    EXPECT_EQ(decode.fileNames().copy(), QStringList{u"/b.flac"_s});
}

TEST_F(BaseTabs, RowsThatAreLeftOutStayInTheList)
{
    decode.addFiles({u"/a.flac"_s, u"/b.flac"_s, u"/c.flac"_s});
    decode.executeCommandWithout({1});
    EXPECT_EQ(decode.pressed, QStringList({u"/a.flac"_s, u"/c.flac"_s}));
    EXPECT_EQ(decode.fileNames().copy(), QStringList{u"/b.flac"_s});
    decode.pressed = {};
    decode.executeCommandWithout({0});
    EXPECT_TRUE(decode.pressed.isEmpty());
    EXPECT_EQ(decode.fileNames().copy(), QStringList{u"/b.flac"_s});
}

TEST_F(BaseTabs, RowsThatAreLeftOutNeverEnterTheListThatATaskHolds)
{
    HoldingTab tab(controller);
    tab.addFiles({u"/a.flac"_s, u"/b.flac"_s, u"/c.flac"_s});
    tab.executeCommandWithout({1});
    const QStringList given{u"/a.flac"_s, u"/c.flac"_s};
    EXPECT_EQ(tab.held->copy(), given);
    EXPECT_EQ(tab.fileNames().count(), 3) << "the list stays, as without rows left out";
    tab.clearButtonClick(nullptr);
    tab.addFiles({u"/d.flac"_s});
    EXPECT_EQ(tab.held->copy(), given);
    tab.executeCommandWithout({});
    EXPECT_EQ(tab.held, tab.fileList());
}

TEST_F(BaseTabs, WhatATaskHasDoneWithLeavesTheTabAndTheRestStays)
{
    HoldingTab tab(controller);
    tab.addFiles({u"/a.flac"_s, u"/b.flac"_s, u"/c.flac"_s});
    tab.executeCommandWithout({1});
    tab.addFiles({u"/d.flac"_s});
    tab.BaseTab::clearFiles(tab.held);
    EXPECT_TRUE(tab.held->isEmpty());
    EXPECT_EQ(tab.fileNames().copy(), QStringList({u"/b.flac"_s, u"/d.flac"_s}));
    tab.executeCommandWithout({});
    tab.BaseTab::clearFiles(tab.held);
    EXPECT_TRUE(tab.fileNames().isEmpty());
}

TEST_F(BaseTabs, FilesThatComeInDuringTheCommandsQuestionStay)
{
    HoldingTab tab(controller);
    tab.addFiles({u"/a.flac"_s, u"/b.flac"_s});
    tab.question = [&tab] { tab.addFiles({u"/c.flac"_s}); };
    tab.executeCommandWithout({0});
    EXPECT_EQ(tab.fileNames().copy(), QStringList({u"/a.flac"_s, u"/b.flac"_s, u"/c.flac"_s}));
}

TEST_F(BaseTabs, ACommandThatBreaksLosesNoRow)
{
    HoldingTab tab(controller);
    tab.addFiles({u"/a.flac"_s, u"/b.flac"_s});
    const auto list = tab.fileList();
    tab.question = [] { throw AssertionException(u"No room."_s); };
    EXPECT_THROW(tab.executeCommandWithout({0}), AssertionException);
    EXPECT_EQ(tab.fileList(), list);
    EXPECT_EQ(tab.fileNames().count(), 2);
}

TEST_F(BaseTabs, OptionsFollowWhatWasLeftOut)
{
    decode.addFiles({u"/a.flac"_s, u"/b.flac"_s});
    const int before = decode.additions;
    decode.executeCommandWithout({1});
    EXPECT_EQ(decode.additions, before + 1);
}

TEST_F(BaseTabs, OneListObjectIsEmptiedInPlace)
{
    const auto list = decode.fileList();
    decode.addFiles({u"/a.flac"_s});
    EXPECT_EQ(list->at(0), u"/a.flac"_s);
    decode.clearFiles();
    EXPECT_TRUE(list->isEmpty());
    EXPECT_THROW(list->at(0), RangeException);
}

TEST_F(BaseTabs, OptionControlsShowTheRelevantOptions)
{
    const int before = decode.displays;
    decode.changeDisplayOptions(nullptr);
    EXPECT_EQ(decode.displays, before + 1);
}
