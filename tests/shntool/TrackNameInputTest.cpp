#include "shntool/TrackNameInputController.h"

#include "platform/desktop/Interfaces.h"
#include "platform/threads/NotificationCenter.h"
#include "shell/Constants.h"
#include "support/LogCapture.h"
#include "support/ScriptedPanels.h"

#include <QFile>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class TrackNameInput : public testing::Test
{
protected:
    TrackNameInput()
    {
        NotificationCenter::standard().addObserver(
            this, Constants::ZOLTTrackNamesEnteredNotification, nullptr, [this](const Notification& notification) {
                posted.push_back(std::any_cast<QStringList>(notification.object));
                EXPECT_TRUE(notification.userInfo.empty());
                EXPECT_EQ(notification.sender, &names);
            });
    }
    ~TrackNameInput() override
    {
        NotificationCenter::standard().removeObserver(this, Constants::ZOLTTrackNamesEnteredNotification, nullptr);
    }

    QString fileWith(const QByteArray& bytes)
    {
        QFile file(folder.filePath(u"show.txt"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }

    QTemporaryDir folder;
    ScriptedPanels panels;
    TrackNameInputController names;
    std::vector<QStringList> posted;
};

} // namespace

TEST_F(TrackNameInput, OkHidesTheWindowAndTellsTheLinesThatAreNotEmpty)
{
    names.showWindow(nullptr);
    names.inputText->setString(u"One\r\n\n  \nTwo"_s);
    names.inputOK(nullptr);
    EXPECT_FALSE(names.window()->isVisible());
    EXPECT_EQ(posted, std::vector<QStringList>{QStringList({u"One"_s, u"  "_s, u"Two"_s})});
    EXPECT_EQ(names.namesText(), u"One\r\n\n  \nTwo"_s);
}

TEST_F(TrackNameInput, AnEmptyTextIsToldToo)
{
    names.inputOK(nullptr);
    EXPECT_EQ(posted, std::vector<QStringList>{QStringList()});
}

TEST_F(TrackNameInput, CancelHidesTheWindowAndKeepsTheText)
{
    names.showWindow(nullptr);
    names.inputText->setString(u"One"_s);
    names.inputCancel(nullptr);
    EXPECT_FALSE(names.window()->isVisible());
    EXPECT_EQ(names.namesText(), u"One"_s);
    EXPECT_TRUE(posted.empty());
}

TEST_F(TrackNameInput, TheInterfaceIsLoadedOnce)
{
    int loads = 0;
    installInterface(u"TrackNameInputWindow"_s, [&](void* owner) {
        EXPECT_EQ(owner, &names);
        ++loads;
    });
    EXPECT_FALSE(names.isWindowLoaded());
    names.showWindow(nullptr);
    names.showWindow(nullptr);
    installInterface(u"TrackNameInputWindow"_s, {});
    EXPECT_EQ(loads, 1);
    EXPECT_TRUE(names.window()->isVisible());
    EXPECT_TRUE(names.acceptsFirstResponder());
}

TEST_F(TrackNameInput, ReplacingIsUndoneAndDoneAgainUnderItsName)
{
    names.inputText->setString(u"typed"_s);
    names.setNames(u"set"_s);
    EXPECT_EQ(names.undoManager().undoActionName(), u"Set Track Name Text"_s);
    names.setInputTextString(u"cut"_s);
    EXPECT_EQ(names.undoManager().undoActionName(), u"Trim Text"_s);
    names.undoManager().undo();
    EXPECT_EQ(names.namesText(), u"set"_s);
    EXPECT_EQ(names.undoManager().redoActionName(), u"Trim Text"_s);
    names.undoManager().undo();
    EXPECT_EQ(names.namesText(), u"typed"_s);
    EXPECT_EQ(names.undoManager().redoActionName(), u"Set Track Name Text"_s) << "undoing names nothing anew";
    EXPECT_FALSE(names.undoManager().canUndo());
    names.undoManager().redo();
    EXPECT_EQ(names.namesText(), u"set"_s);
    EXPECT_EQ(names.undoManager().undoActionName(), u"Trim Text"_s) << "what is done again is the one operation";
    names.undoManager().redo();
    EXPECT_EQ(names.namesText(), u"cut"_s);
}

TEST_F(TrackNameInput, ClearingIsNotUndone)
{
    names.inputText->setString(u"typed"_s);
    names.clear();
    EXPECT_EQ(names.namesText(), QString());
    EXPECT_FALSE(names.undoManager().canUndo());
}

TEST_F(TrackNameInput, LoadingAsksForOneFileAndTakesItsNames)
{
    panels.answerOpenPanel(QStringList{fileWith("Somewhere\n1. One 4:05\n2. Two\n")});
    names.loadTrackNamesFromFile(nullptr);
    EXPECT_EQ(names.namesText(), u"One \nTwo\n"_s);
    EXPECT_EQ(names.undoManager().undoActionName(), u"Trim Text"_s);
    const OpenPanelRequest asked = panels.openRequests().front();
    EXPECT_EQ(asked.title, u"Choose file with track names"_s);
    EXPECT_TRUE(asked.canChooseFiles && !asked.canChooseDirectories && !asked.allowsMultipleSelection);
    EXPECT_FALSE(asked.treatsFilePackagesAsDirectories);
    EXPECT_TRUE(asked.fileTypes.isEmpty());
}

TEST_F(TrackNameInput, DismissingThePanelEmptiesTheTextAndUndoBringsItBack)
{
    names.inputText->setString(u"typed"_s);
    panels.answerOpenPanel(std::nullopt);
    names.loadTrackNamesFromFile(nullptr);
    EXPECT_EQ(names.namesText(), QString());
    names.undoManager().undo();
    EXPECT_EQ(names.namesText(), u"typed"_s);
}

TEST_F(TrackNameInput, AFileThatCannotBeReadLeavesTheText)
{
    const LogCapture log;
    names.inputText->setString(u"typed"_s);
    panels.answerOpenPanel(QStringList{fileWith("1. Caf\xe9\n")});
    names.loadTrackNamesFromFile(nullptr);
    EXPECT_EQ(names.namesText(), u"typed"_s);
    EXPECT_FALSE(names.undoManager().canUndo());
    EXPECT_THAT(log.lines(),
                testing::ElementsAre(
                    u"error The file has no byte-order mark."_s, u"Trying to open as unicode..."_s,
                    u"error The text is not UTF-8."_s, u"Last hope: opening using NSASCIIStringEncoding..."_s,
                    u"error The text is not ASCII."_s,
                    u"Could not open file...%1  The text is not ASCII."_s.arg(folder.filePath(u"show.txt"_s))));
}
