#include "ShellFixture.h"

#include "engine/ZOLTTask.h"
#include "shell/PreferencesController.h"

#include <QProcess>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

class Controller : public ShellTest
{
protected:
    void select(int index) { controller.tabView->selectTabViewItemAtIndex(index); }
    static constexpr int decodeIndex = 0, encodeIndex = 1, checksumIndex = 2, lossyIndex = 3, utilIndex = 5,
                         aboutIndex = 6;
    int selected() const { return controller.tabView->selectedIndex(); }
};

TEST_F(Controller, AboutTabShowsNameVersionAndBuild)
{
    EXPECT_EQ(controller.ZoltTitleTextField->stringValue(), u"Zolt Toolkit 1.0"_s);
    EXPECT_EQ(controller.buildTextField->stringValue(), u"(Build 1)"_s);
}

TEST_F(Controller, PreferencesAreReadyOnceTheInterfaceIsThereAndComeWhenAskedFor)
{
    const Window& window = *controller.preferencesController().window();
    EXPECT_TRUE(window.toolbar());
    EXPECT_FALSE(window.isVisible());
    controller.showPreferencePanel(nullptr);
    EXPECT_TRUE(window.isVisible());
}

TEST_F(Controller, TabsWithTrackNamesGetTheirWindowAtTheEndOfLaunching)
{
    struct NamedTab : PlainTab
    {
        void setTrackNameWindow(const std::shared_ptr<TrackNameInputController>& window) override { names = window; }
        std::shared_ptr<TrackNameInputController> names;
    };
    ZOLTController fresh;
    NamedTab shntool, named, other;
    fresh.addTab(shntool, Constants::SHNTOOL);
    fresh.addTab(named, Constants::TAGS);
    fresh.addTab(other, Constants::ENCODE);
    EXPECT_FALSE(shntool.names || named.names);
    fresh.applicationDidFinishLaunching();
    EXPECT_TRUE(shntool.names);
    EXPECT_EQ(shntool.names, fresh.trackNameInputController());
    EXPECT_EQ(named.names, fresh.trackNameInputController());
    EXPECT_FALSE(other.names);
}

TEST_F(Controller, TheTabInFrontIsToldAtTheEndOfLaunching)
{
    EXPECT_EQ(decode.displays, 1);
    EXPECT_EQ(encode.displays, 0);
}

TEST_F(Controller, FilesOfAFolderComeWithoutWhatFileManagersLeave)
{
    const QString one = file(u"show/d1/a.flac"_s), two = file(u"show/notes.txt"_s);
    file(u"show/.DS_Store"_s);
    file(u"show/d1/.TOC.plist"_s);
    QStringList files = controller.getFilesFileManager(folder() + u"/show"_s);
    files.sort();
    EXPECT_EQ(files, QStringList({one, two}));
    EXPECT_EQ(controller.getFilesFileManager(u"/gone/a.flac"_s), QStringList{u"/gone/a.flac"_s});
}

TEST_F(Controller, FolderFromOutsideIsFilteredWithNoAlert)
{
    file(u"show/a.flac"_s);
    file(u"show/stray.txt"_s);
    file(u"show/.DS_Store"_s);
    controller.applicationOpenFiles({folder()});
    EXPECT_EQ(decode.fileNames().copy(), QStringList{folder() + u"/show/a.flac"_s});
    EXPECT_TRUE(panels_.alerts().empty());
}

TEST_F(Controller, TheFolderInFrontIsThatOfTheFirstFile)
{
    EXPECT_EQ(controller.folderInFront(), QString());
    controller.addFiles({u"/b/2.flac"_s, u"/a/1.flac"_s});
    EXPECT_EQ(controller.folderInFront(), u"/a"_s);
    select(encodeIndex);
    EXPECT_EQ(controller.folderInFront(), QString());
    select(aboutIndex);
    EXPECT_EQ(controller.folderInFront(), QString());
}

TEST_F(Controller, AboutTabInFrontRoutesByExtension)
{
    const struct
    {
        QString name;
        int index;
        PlainTab* tab;
    } cases[] = {
        {u"/a.wav"_s, encodeIndex, &encode},     {u"/a.flac"_s, decodeIndex, &decode},
        {u"/a.m4a"_s, decodeIndex, &decode},     {u"/a.md5"_s, checksumIndex, &checksum},
        {u"/a.APE"_s, decodeIndex, &decode},     {u"/a.aif"_s, encodeIndex, &encode},
        {u"/a.st5"_s, checksumIndex, &checksum},
    };
    for (const auto& one : cases) {
        select(aboutIndex);
        const auto before = one.tab->fileNames().count();
        controller.addFiles({one.name});
        EXPECT_EQ(selected(), one.index) << one.name.toStdString();
        EXPECT_EQ(one.tab->fileNames().count(), before + 1) << one.name.toStdString();
    }
}

TEST_F(Controller, FileThatNoTabTakesSelectsTheEncodeTabAndGoesNowhere)
{
    select(aboutIndex);
    controller.addFiles({u"/a.jpeg"_s});
    EXPECT_EQ(selected(), encodeIndex);
    EXPECT_TRUE(encode.fileNames().isEmpty() && decode.fileNames().isEmpty() && checksum.fileNames().isEmpty());
}

TEST_F(Controller, WhatFileManagersLeaveGoesNowhereFromOutside)
{
    const QStringList left{u"/show/.DS_Store"_s, u"/show/.TOC.plist"_s};
    select(utilIndex); // takes any other file
    controller.addFiles(left);
    EXPECT_TRUE(util.fileNames().isEmpty());
    select(aboutIndex);
    controller.addFiles(left);
    EXPECT_EQ(selected(), aboutIndex);
}

TEST_F(Controller, LastPathDecidesWhichTabIsSelected)
{
    select(aboutIndex);
    controller.addFiles({u"/a.flac"_s, u"/b.md5"_s});
    EXPECT_EQ(selected(), checksumIndex);
}

TEST_F(Controller, OddExtensionEntersByContentThroughTheTabButNotFromOutside)
{
    const QString odd = file(u"sound.xyz"_s, wavBytes());
    select(encodeIndex);
    controller.addFiles({odd});
    EXPECT_TRUE(encode.fileNames().isEmpty());
    encode.addFiles({odd});
    EXPECT_EQ(encode.fileNames().count(), 1);
    EXPECT_TRUE(controller.isValidFilePath(Constants::LOSSY, odd));
    for (const QString& label : {Constants::DECODE, Constants::TAGS})
        EXPECT_FALSE(controller.isValidFilePath(label, odd)) << "no plain audio there: " << label.toStdString();
}

TEST_F(Controller, ChecksumTakesAllAndUtilHasNoEntry)
{
    select(checksumIndex);
    controller.addFiles({u"/a.jpeg"_s});
    EXPECT_EQ(checksum.fileNames().count(), 1);
    select(utilIndex);
    controller.addFiles({u"/a.jpeg"_s});
    EXPECT_EQ(util.fileNames().count(), 1);
}

TEST_F(Controller, AacIsRefusedByEncodeAndTakenByDecode)
{
    const QString aac = file(u"a.m4a"_s, "no Apple Lossless");
    EXPECT_FALSE(controller.isValidFilePath(Constants::ENCODE, aac));
    EXPECT_FALSE(controller.isValidFilePath(Constants::LOSSY, aac));
    EXPECT_TRUE(controller.isValidFilePath(Constants::DECODE, aac));
}

TEST_F(Controller, AppleLosslessReachesEncodeBothWaysAndLossyThroughItsTableAlone)
{
    const QString wav = file(u"a.wav"_s, wavBytes()), lossless = folder() + u"/a.m4a"_s, aac = folder() + u"/b.m4a"_s;
    for (const auto& [codec, output] : {std::pair(u"alac"_s, lossless), std::pair(u"aac"_s, aac)}) {
        QProcess::execute(u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-i"_s, wav, u"-c:a"_s, codec, output});
    }
    select(encodeIndex);
    controller.addFiles({lossless, aac});
    EXPECT_EQ(encode.fileNames().copy(), QStringList{lossless});
    select(lossyIndex);
    controller.addFiles({lossless, aac});
    EXPECT_TRUE(lossy.fileNames().isEmpty());
    panels_.answerAlert(1);
    panels_.answerAlert(1);
    encode.addFiles({lossless, aac});
    lossy.addFiles({lossless, aac});
    EXPECT_EQ(encode.fileNames().copy(), QStringList({lossless, lossless}));
    EXPECT_EQ(lossy.fileNames().copy(), QStringList{lossless});
}

TEST_F(Controller, PathThatDoesNotExistPassesAsAFile)
{
    controller.addFiles({u"/nowhere/a.flac"_s});
    EXPECT_EQ(decode.fileNames().count(), 1);
}

TEST_F(Controller, UnknownLabelIsHarmless)
{
    controller.tabViewDidSelectTabViewItem(TabViewItem(u"nothing"_s));
    select(99);
    EXPECT_EQ(selected(), decodeIndex);
}

TEST_F(Controller, SelectionByTagShowsTheTabsOptions)
{
    Button item;
    item.setTag(encodeIndex);
    const int before = encode.displays;
    controller.selectTab(&item);
    EXPECT_EQ(selected(), encodeIndex);
    EXPECT_EQ(encode.displays, before + 1);
    controller.selectTab(nullptr);
    EXPECT_EQ(selected(), 0) << "nobody has the tag 0";
}

TEST_F(Controller, FilesBeforeTheEndOfLaunchingGoToNobody)
{
    ZOLTController early;
    early.tabView->addTabViewItem(std::make_shared<TabViewItem>(Constants::DECODE));
    early.decodeTab = &decode;
    early.addFiles({u"/a.flac"_s});
    EXPECT_TRUE(decode.fileNames().isEmpty());
}

TEST_F(Controller, ClosingTheMainWindowAsksFirst)
{
    panels_.answerAlert(1);
    EXPECT_FALSE(controller.windowShouldClose());
    panels_.answerAlert(0);
    EXPECT_TRUE(controller.windowShouldClose());
    EXPECT_EQ(panels_.alerts()[0].title, u"Are you sure you want to quit?"_s);
    EXPECT_EQ(panels_.alerts()[0].message, QString());
    EXPECT_EQ(panels_.alerts()[0].buttons, QStringList({u"No"_s, u"Yes"_s}));
    controller.windowWillClose();
    EXPECT_EQ(desktop_.terminations(), 1);
}

TEST_F(Controller, QuittingWithOpenTasksAsksAndYesCancelsThem)
{
    EXPECT_EQ(controller.applicationShouldTerminate(), ZOLTController::TerminateReply::Now);
    const auto task = ZOLTTask::initWithQueue(controller.taskQueue());
    controller.taskQueue()->maxThreadsChanged({QString(), nullptr, 0});
    controller.taskQueue()->addTask(task);
    panels_.answerAlert(1);
    EXPECT_EQ(controller.applicationShouldTerminate(), ZOLTController::TerminateReply::Cancel);
    EXPECT_EQ(panels_.alerts()[0].title, u"Tasks in Progress"_s);
    EXPECT_EQ(panels_.alerts()[0].message, u"There are 1 tasks in the queue.  Are you sure you want to quit?"_s);
    EXPECT_EQ(panels_.alerts()[0].buttons, QStringList({u"No"_s, u"Yes"_s}));
    panels_.answerAlert(0);
    EXPECT_EQ(controller.applicationShouldTerminate(), ZOLTController::TerminateReply::Now);
    controller.applicationWillTerminate();
    EXPECT_TRUE(task->cancelled());
}

TEST_F(Controller, EachLabelAcceptsItsExtensions)
{
    const auto accepts = [&](const QString& label, const QStringList& extensions) {
        const auto* set = controller.acceptedExtensions(label);
        ASSERT_NE(set, nullptr);
        EXPECT_EQ(*set, QSet<QString>(extensions.begin(), extensions.end())) << label.toStdString();
    };
    accepts(u"decode"_s, {u"FLAC"_s, u"SHN"_s, u"WV"_s, u"M4A"_s, u"TTA"_s, u"APE"_s});
    accepts(u"encode"_s, {u"WAV"_s, u"AIF"_s, u"AIFF"_s, u"FLAC"_s, u"SHN"_s, u"WV"_s, u"TTA"_s, u"APE"_s});
    accepts(u"checksum"_s, {u"WAV"_s, u"AIFF"_s, u"AIF"_s, u"FLAC"_s, u"SHN"_s, u"MD5"_s, u"FFP"_s, u"TXT"_s, u"APE"_s,
                            u"WV"_s, u"TTA"_s, u"ST5"_s});
    accepts(u"shntool"_s, {u"FLAC"_s, u"SHN"_s, u"WAV"_s, u"AIF"_s, u"AIFF"_s, u"TTA"_s, u"WV"_s, u"APE"_s});
    accepts(u"fix SBE"_s, {u"FLAC"_s, u"SHN"_s, u"WAV"_s, u"AIF"_s, u"AIFF"_s, u"WV"_s, u"TTA"_s});
    accepts(u"lossy"_s, {u"FLAC"_s, u"SHN"_s, u"WAV"_s, u"AIFF"_s, u"AIF"_s, u"WV"_s, u"TTA"_s});
    accepts(u"Tags"_s, {u"FLAC"_s, u"M4A"_s, u"MP3"_s, u"WV"_s, u"APE"_s});
    EXPECT_EQ(controller.acceptedExtensions(u"util"_s), nullptr);
    EXPECT_EQ(controller.offeredExtensions(u"Tags"_s), QStringList({u"APE"_s, u"FLAC"_s, u"M4A"_s, u"MP3"_s, u"WV"_s}));
    EXPECT_TRUE(controller.offeredExtensions(u"encode"_s).contains(u"M4A"_s)) << "Apple Lossless";
    EXPECT_TRUE(controller.offeredExtensions(u"util"_s).isEmpty());
}
