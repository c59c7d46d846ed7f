#include "ShellFixture.h"

#include "platform/errors/Exceptions.h"
#include "platform/threads/DetachedThreads.h"
#include "shell/FileCommand.h"
#include "support/EventLoop.h"
#include "support/Gate.h"
#include "support/LogCapture.h"
#include "support/NoMoreThreads.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

const std::atomic<bool> goesOn = false;

class Intakes : public ShellTest
{
protected:
    Intakes() { controller.setWalksInBackground(true); }
    /// A folder with FLAC files and a text file below it. @return its path
    QString show(int count)
    {
        for (int number = 0; number < count; ++number)
            file(QStringLiteral("show/d%1/%2.flac").arg(number % 3).arg(number, 3, 10, QChar(u'0')));
        file(u"show/notes.txt"_s);
        file(u"show/.DS_Store"_s);
        return folder() + u"/show"_s;
    }
};

} // namespace

TEST_F(Intakes, AFolderComesInBesideTheMainThreadSortedAndToldOnce)
{
    const QString path = show(30);
    panels_.answerAlert(1);
    decode.addFiles({path});
    EXPECT_TRUE(decode.isTakingIn());
    EXPECT_TRUE(decode.fileNames().isEmpty());
    decode.waitForFiles();
    EXPECT_FALSE(decode.isTakingIn());
    QStringList sorted = decode.fileNames().copy();
    EXPECT_EQ(sorted.size(), 30);
    sorted.sort();
    EXPECT_EQ(decode.fileNames().copy(), sorted);
    EXPECT_EQ(decode.additions, 1);
    ASSERT_EQ(panels_.alerts().size(), 1U);
    EXPECT_EQ(panels_.alerts()[0].title, u"Some files types were not recognized by this tab and were skipped"_s);
}

TEST_F(Intakes, WhoeverTakesFilesInMayGoWithTheLastOfThem)
{
    auto intake = std::make_unique<FileIntake>();
    intake->start(
        {show(3)}, [](const QString&) { return true; }, [](const QStringList&) {},
        [&](const Intake&) { intake.reset(); });
    EXPECT_TRUE(runUntil([&] { return !intake; }));
    waitForDetachedThreads();
    runPosted(); // what the thread posted last: seen by the address sanitizer where it still asks for the owner
    EXPECT_FALSE(intake);
}

TEST_F(Intakes, AFewFilesComeInAtOnce)
{
    decode.addFiles({u"/a.flac"_s, u"/b.flac"_s});
    EXPECT_FALSE(decode.isTakingIn());
    EXPECT_EQ(decode.fileNames().count(), 2);
}

TEST_F(Intakes, ALongListIsJudgedBesideTheMainThread)
{
    QStringList paths;
    for (int number = 0; number < 100; ++number)
        paths += QStringLiteral("/%1.flac").arg(number);
    decode.addFiles(paths);
    EXPECT_TRUE(decode.isTakingIn());
    decode.waitForFiles();
    EXPECT_EQ(decode.fileNames().count(), 100);
}

TEST_F(Intakes, TheFirstRowIsThereWhileTheWalkGoesOn)
{
    Gate gate;
    decode.addFilesAccepted({show(3)}, [&](const QString& file) { return gate.pass(file); });
    EXPECT_TRUE(runUntil([&] { return decode.fileNames().count() == 1; }));
    EXPECT_TRUE(decode.isTakingIn());
    EXPECT_EQ(decode.additions, 0);
    gate.open();
    decode.waitForFiles();
    EXPECT_EQ(decode.fileNames().count(), 3);
}

TEST_F(Intakes, NoCommandIsBegunUntilAllIsThere)
{
    Gate gate;
    decode.addFilesAccepted({show(3)}, [&](const QString& file) { return gate.pass(file); });
    EXPECT_TRUE(runUntil([&] { return decode.fileNames().count() == 1; }));
    decode.executeCommandWithout({});
    EXPECT_TRUE(decode.pressed.isEmpty());
    EXPECT_FALSE(FileCommand::start(decode, {.besideSources = true}));
    gate.open();
    decode.waitForFiles();
    EXPECT_TRUE(FileCommand::start(decode, {.besideSources = true}));
    decode.executeCommandWithout({});
    EXPECT_EQ(decode.pressed.size(), 3);
}

TEST_F(Intakes, TheTableIsToldThatFilesComeInAndThatTheyAreThere)
{
    Gate gate;
    const unsigned before = decode.tableView->reloads();
    decode.addFilesAccepted({show(0)}, [&](const QString& file) { return gate.pass(file); });
    EXPECT_EQ(decode.tableView->reloads(), before + 1);
    gate.open();
    decode.waitForFiles();
    EXPECT_GT(decode.tableView->reloads(), before + 1);
}

TEST_F(Intakes, WhereNoThreadIsToBeHadNothingComesInAndTheTabGoesOn)
{
    const QString path = show(3);
    NoMoreThreads none;
    EXPECT_THROW(decode.addFiles({path}), PlatformException);
    EXPECT_FALSE(decode.isTakingIn());
    none.give();
    decode.addFilesAccepted({path}, [](const QString&) { return true; });
    decode.waitForFiles();
    EXPECT_EQ(decode.fileNames().count(), 3);
}

TEST_F(Intakes, AWalkThatBreaksComesToItsEnd)
{
    const LogCapture log;
    decode.addFilesAccepted({show(3)}, [](const QString&) -> bool { throw std::bad_alloc(); });
    decode.waitForFiles(); // returns
    EXPECT_TRUE(decode.fileNames().isEmpty());
}

TEST_F(Intakes, ClearingGivesUpWhatIsStillOnItsWay)
{
    Gate gate;
    gate.open();
    decode.addFilesAccepted({show(40)}, [&](const QString& file) { return gate.pass(file); });
    decode.clearButtonClick(nullptr);
    EXPECT_FALSE(decode.isTakingIn());
    waitForDetachedThreads();
    runPosted();
    EXPECT_TRUE(decode.fileNames().isEmpty());
    EXPECT_EQ(decode.additions, 0);
}

TEST_F(Intakes, FilesFromOutsideComeInBesideToo)
{
    controller.addFiles({show(30)});
    EXPECT_TRUE(decode.isTakingIn());
    decode.waitForFiles();
    EXPECT_EQ(decode.fileNames().count(), 30);
    EXPECT_TRUE(panels_.alerts().empty()); // the text file is dropped without a word
}

TEST_F(Intakes, WithTheAboutTabInFrontEachFileFindsItsTab)
{
    controller.tabView->selectTabViewItemWithLabel(Constants::ABOUT);
    controller.addFiles({show(4)});
    EXPECT_TRUE(runUntil([&] { return decode.fileNames().count() == 4; }));
    EXPECT_TRUE(runUntil([&] { return checksum.fileNames().count() == 1; }));
}

TEST_F(Intakes, ATabThatGoesTakesItsWalkWithIt)
{
    auto tab = std::make_unique<PlainTab>();
    ZOLTController own;
    own.addTab(*tab, Constants::UTIL);
    own.setWalksInBackground(true);
    tab->addFiles({show(40)});
    tab.reset();
    waitForDetachedThreads();
    runPosted();
}

TEST_F(Intakes, AWalkEndsWhenItIsToldTo)
{
    std::atomic<bool> stop = false;
    int seen = 0;
    const auto accepts = [&](const QString&) {
        stop = ++seen == 2;
        return true;
    };
    EXPECT_EQ(takeIn(
                  {show(30)}, accepts, [](const QString&) {}, stop)
                  .files.size(),
              2);
    EXPECT_EQ(takeIn(
                  {show(30)}, [](const QString&) { return true; }, [](const QString&) {}, goesOn)
                  .files.size(),
              31);
}
