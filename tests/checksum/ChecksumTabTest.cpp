#include "checksum/ChecksumTab.h"
#include "checksum/CreateMD5Task.h"
#include "checksum/CreateST5Task.h"
#include "checksum/VerifyApeTask.h"
#include "checksum/VerifyFFPTask.h"
#include "checksum/VerifyFlacTask.h"
#include "checksum/VerifyMD5Task.h"
#include "checksum/VerifyST5Task.h"
#include "checksum/VerifyTTATask.h"
#include "checksum/VerifyWavepackTask.h"
#include "engine/OutputWindowController.h"
#include "platform/Product.h"
#include "support/FakeTools.h"
#include "support/TabFixture.h"

#include <QRegularExpression>

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class ChecksumTabTest : protected FakeTools, public TabFixture<ChecksumTab>
{
protected:
    ChecksumTabTest() : TabFixture(Constants::CHECKSUM) { holdQueue(); }

    void press(ChecksumTab::Command command, const QStringList& names)
    {
        QStringList paths;
        for (const QString& name : names)
            paths += pathOf(name);
        tab.commandOptions->selectCell(command, 0);
        tab.addFiles(paths);
        tab.executeCommand(nullptr);
    }
    void create(const QString& kind, const QStringList& names)
    {
        tab.createChecksumOptions->selectTitle(kind);
        press(ChecksumTab::CreateList, names);
    }
    /// The class of each queued task that the row of that number is of; for one that is of another, nothing.
    template <class Task> std::shared_ptr<Task> task(std::size_t number) { return queued<Task>().at(number); }
    QString textOf(const QString& name) const
    {
        QFile list(pathOf(name));
        EXPECT_TRUE(list.open(QIODevice::ReadOnly));
        return QString::fromUtf8(list.readAll());
    }
};

} // namespace

TEST_F(ChecksumTabTest, AnEmptyListDoesNothing)
{
    press(ChecksumTab::CreateList, {});
    EXPECT_EQ(queue().taskCount(), 0);
}

TEST_F(ChecksumTabTest, EachKindIsTestedByItsTool)
{
    press(ChecksumTab::TestFiles, {u"a.Flac"_s, u"b.ape"_s, u"c.wv"_s, u"d.TTA"_s, u"e.shn"_s, u"f.wav"_s});
    ASSERT_EQ(queue().taskCount(), 4);
    const auto flac = task<VerifyFlacTask>(0);
    EXPECT_EQ(flac->launchPath(), directory() + u"/flac"_s);
    EXPECT_EQ(flac->arguments(), QStringList({u"-t"_s, pathOf(u"a.Flac"_s)}));
    EXPECT_EQ(flac->title(), u"Verify FLAC"_s);
    EXPECT_EQ(flac->textField()->stringValue(), u"a.Flac"_s);
    const auto ape = task<VerifyApeTask>(1);
    EXPECT_EQ(ape->launchPath(), directory() + u"/mac"_s);
    EXPECT_EQ(ape->arguments(), QStringList({pathOf(u"b.ape"_s), u"-v"_s}));
    EXPECT_EQ(ape->title(), u"b.ape"_s);
    const auto wavpack = task<VerifyWavepackTask>(2);
    EXPECT_EQ(wavpack->launchPath(), directory() + u"/wvunpack"_s);
    EXPECT_EQ(wavpack->arguments(), QStringList({u"-v"_s, pathOf(u"c.wv"_s)}));
    const auto tta = task<VerifyTTATask>(3);
    EXPECT_EQ(tta->launchPath(), directory() + u"/ttaenc"_s);
    EXPECT_EQ(tta->arguments(), QStringList({u"-t"_s, pathOf(u"d.TTA"_s)}));
    EXPECT_EQ(flac->results(), tta->results()) << "one report for all";
    EXPECT_EQ(flac->results()->tasksInSet().size(), 4U);
    EXPECT_TRUE(tab.fileNames().isEmpty());
}

TEST_F(ChecksumTabTest, TheReportsWindowIsTitledByTheTaskThatEndsLast)
{
    install(u"flac"_s, {u"wait-file"_s, pathOf(u"go"_s)});
    install(u"wvunpack"_s);
    queue().maxThreadsChanged({QString(), nullptr, 2});
    press(ChecksumTab::TestFiles, {u"a.flac"_s, u"b.wv"_s});
    ASSERT_TRUE(runUntil([this] { return queue().taskCount() == 1; }));
    file(u"go"_s);
    runQueue();
    ASSERT_EQ(queue().outputWindows().size(), 1U);
    EXPECT_EQ(queue().outputWindows().front()->window()->title(), u"Verify FLAC"_s)
        << "though it stands first in the text";
}

TEST_F(ChecksumTabTest, FilesThatNothingTestsEmptyTheListWithoutATask)
{
    press(ChecksumTab::TestFiles, {u"a.shn"_s, u"b.shn"_s});
    EXPECT_EQ(queue().taskCount(), 0);
    EXPECT_TRUE(tab.fileNames().isEmpty());
}

TEST_F(ChecksumTabTest, ListsAreRecognisedByTheirNames)
{
    press(ChecksumTab::VerifyLists, {u"a.md5"_s, u"b.ST5"_s, u"c.ffp"_s, u"d.FFP.TXT"_s, u"e.txt"_s, u"f.md5.txt"_s,
                                     u"g.ffp.md5"_s, u"h.flac"_s, u"i.ffp.wav"_s});
    ASSERT_EQ(queue().taskCount(), 5);
    EXPECT_EQ(task<VerifyMD5Task>(0)->fileName(), pathOf(u"a.md5"_s));
    EXPECT_TRUE(task<VerifyST5Task>(1));
    EXPECT_TRUE(task<VerifyFFPTask>(2));
    EXPECT_TRUE(task<VerifyFFPTask>(3));
    EXPECT_TRUE(task<VerifyMD5Task>(4));
    EXPECT_EQ(task<VerifyMD5Task>(0)->results(), task<VerifyMD5Task>(4)->results());
    EXPECT_TRUE(tab.fileNames().isEmpty());
}

TEST_F(ChecksumTabTest, AnMd5ListTakesTheTabsOwnListWhateverItHolds)
{
    create(u"MD5"_s, {u"b.txt"_s, u"a.wav"_s});
    const auto made = task<CreateMD5Task>(0);
    ASSERT_TRUE(made);
    EXPECT_EQ(made->title(), u"Creating MD5"_s);
    EXPECT_EQ(made->textField()->stringValue(), u"Create MD5 checksum file"_s) << "until it starts";
    EXPECT_TRUE(tab.fileNames().isEmpty());
}

TEST_F(ChecksumTabTest, AnMd5ListMadeInAFullQueueNamesNoFiles)
{
    file(u"a.wav"_s, "abc");
    create(u"MD5"_s, {u"a.wav"_s});
    queue().startTask(queue().taskArray().front());
    runQueue();
    EXPECT_EQ(textOf(u"md5sum.md5"_s).count(u'\n'), 2);
}

TEST_F(ChecksumTabTest, AnMd5ListMadeAtOnceNamesThemAll)
{
    queue().maxThreadsChanged({QString(), nullptr, 1});
    file(u"a.wav"_s, "abc");
    file(u"b.txt"_s, "abc");
    create(u"MD5"_s, {u"a.wav"_s, u"b.txt"_s});
    runQueue();
    EXPECT_EQ(textOf(u"md5sum.md5"_s).count(u'\n'), 4);
}

TEST_F(ChecksumTabTest, AnMd5ListOverSeveralFoldersStandsBesideTheFirstFileWhateverItIs)
{
    queue().maxThreadsChanged({QString(), nullptr, 1});
    file(u"a/x.txt"_s, "abc");
    file(u"b/y.wav"_s, "abc");
    create(u"MD5"_s, {u"b/y.wav"_s, u"a/x.txt"_s});
    runQueue();
    EXPECT_FALSE(exists(u"b/md5sum.md5"_s));
    EXPECT_EQ(textOf(u"a/md5sum.md5"_s).section(u'\n', 2),
              u"900150983cd24fb0d6963f7d28e17f72 *x.txt\n900150983cd24fb0d6963f7d28e17f72 *y.wav\n"_s);
}

TEST_F(ChecksumTabTest, AKindThatIsNoneOnlyEmptiesTheList)
{
    file(u"a.flac"_s);
    tab.createChecksumOptions->deselectAllCells();
    press(ChecksumTab::CreateList, {u"a.flac"_s});
    EXPECT_EQ(queue().taskCount(), 0);
    EXPECT_TRUE(tab.fileNames().isEmpty());
    EXPECT_EQ(QDir(folder()).entryList({u"*.md5"_s, u"*.st5"_s, u"*.txt"_s}), QStringList());
}

TEST_F(ChecksumTabTest, AnSt5ListTakesEightKindsOfAudio)
{
    create(u"ST5"_s, {u"1.flac"_s, u"2.WAV"_s, u"3.aiff"_s, u"4.aif"_s, u"5.shn"_s, u"6.ape"_s, u"7.wv"_s, u"8.tta"_s,
                      u"9.mp3"_s, u"9.m4a"_s, u"9.ogg"_s});
    EXPECT_EQ(task<CreateST5Task>(0)->arguments(),
              QStringList({u"hash"_s, u"-m"_s, u"1.flac"_s, u"2.WAV"_s, u"3.aiff"_s, u"4.aif"_s, u"5.shn"_s, u"6.ape"_s,
                           u"7.wv"_s, u"8.tta"_s}));
}

TEST_F(ChecksumTabTest, AnSt5ListNamesTheHashableFilesFromTheFolderOfTheLast)
{
    create(u"ST5"_s, {u"z/a.flac"_s, u"1.txt"_s, u"d/b c.wav"_s, u"d/x.md5"_s});
    const auto made = task<CreateST5Task>(0);
    ASSERT_TRUE(made);
    EXPECT_EQ(made->launchPath(), directory() + u"/shntool"_s);
    EXPECT_EQ(made->arguments(), QStringList({u"hash"_s, u"-m"_s, u"b c.wav"_s, u"a.flac"_s}));
    EXPECT_EQ(made->title(), u"Create ST5"_s);
    EXPECT_TRUE(tab.fileNames().isEmpty());
}

TEST_F(ChecksumTabTest, AnSt5ListStandsBesideTheFirstOfItsFiles)
{
    install(u"shntool"_s, {u"cwd"_s});
    queue().maxThreadsChanged({QString(), nullptr, 1});
    file(u"a/1.txt"_s);
    file(u"b/1.wav"_s);
    file(u"c/2.wav"_s);
    create(u"ST5"_s, {u"a/1.txt"_s, u"b/1.wav"_s, u"c/2.wav"_s});
    runQueue();
    EXPECT_TRUE(exists(u"b/checksum.st5"_s)) << "not beside the text file";
}

TEST_F(ChecksumTabTest, AnSt5ListOfNoAudioEmptiesTheList)
{
    create(u"ST5"_s, {u"a.txt"_s});
    EXPECT_EQ(queue().taskCount(), 0);
    EXPECT_TRUE(tab.fileNames().isEmpty());
}

TEST_F(ChecksumTabTest, FingerprintsAreWrittenAtOnceWithoutATask)
{
    install(u"metaflac"_s, {u"out"_s, u"ab12\n"_s});
    create(u"FFP"_s, {u"b/1.flac"_s, u"b/2 x.FLAC"_s, u"a/1.wav"_s});
    EXPECT_EQ(queue().taskCount(), 0);
    EXPECT_TRUE(tab.fileNames().isEmpty());
    EXPECT_FALSE(exists(u"b/fingerprint.ffp.txt"_s)) << "the folder is missing, which nobody tells";
    file(u"b/x"_s);
    create(u"FFP"_s, {u"b/1.flac"_s, u"b/2 x.FLAC"_s, u"a/1.wav"_s});
    const QRegularExpression expected(
        u"\\A;flac fingerprints generated by Zolt %1 on "
        "\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d [+-]\\d{4}\n\n"
        "1.flac:ab12\n2 x.FLAC:ab12\n\\z"_s.arg(QRegularExpression::escape(QLatin1String(product::version))));
    EXPECT_TRUE(expected.match(textOf(u"b/fingerprint.ffp.txt"_s)).hasMatch())
        << textOf(u"b/fingerprint.ffp.txt"_s).toStdString();
}

TEST_F(ChecksumTabTest, AFileThatMetaflacRefusesStandsWithTheToolsMessage)
{
    install(u"metaflac"_s, {u"out"_s, u"status = \"FLAC__METADATA_CHAIN_STATUS_NOT_A_FLAC_FILE\"\n"_s});
    file(u"a.flac"_s);
    create(u"FFP"_s, {u"a.flac"_s});
    EXPECT_TRUE(
        textOf(u"fingerprint.ffp.txt"_s).endsWith(u"\n\nstatus = \"FLAC__METADATA_CHAIN_STATUS_NOT_A_FLAC_FILE\"\n"_s));
}

TEST_F(ChecksumTabTest, FingerprintsOfNoFlacFilesEmptyTheListAndWriteNothing)
{
    create(u"FFP"_s, {u"a.wav"_s});
    EXPECT_TRUE(tab.fileNames().isEmpty());
    EXPECT_FALSE(exists(u"fingerprint.ffp.txt"_s));
}

TEST_F(ChecksumTabTest, ADismissedPanelKeepsTheListForFingerprintsAlone)
{
    tab.sourceSaveButton->setState(false);
    const QStringList kinds{u"MD5"_s, u"ST5"_s, u"FFP"_s};
    const QStringList names{u"md5sum.md5"_s, u"checksum.st5"_s, u"fingerprint.ffp.txt"_s};
    const QStringList titles{u"Save md5 as..."_s, u"Save st5 as..."_s, u"Save fingerprint as..."_s};
    for (qsizetype i = 0; i < 3; ++i) {
        panels_.answerSavePanel(std::nullopt);
        create(kinds[i], {u"a.flac"_s});
        EXPECT_EQ(tab.fileNames().isEmpty(), kinds[i] != u"FFP"_s);
        EXPECT_EQ(panels_.saveRequests().back().fileName, names[i]);
        EXPECT_EQ(panels_.saveRequests().back().title, titles[i]);
    }
    EXPECT_EQ(queue().taskCount(), 0);
}

TEST_F(ChecksumTabTest, AChosenPlaceIsTaken)
{
    install(u"metaflac"_s, {u"out"_s, u"ab12\n"_s});
    tab.sourceSaveButton->setState(false);
    panels_.answerSavePanel(pathOf(u"mine.txt"_s));
    create(u"FFP"_s, {u"a.flac"_s});
    EXPECT_TRUE(exists(u"mine.txt"_s));
}

TEST_F(ChecksumTabTest, ARowOutsideTheCommandsOnlyEmptiesTheList)
{
    tab.addFiles({pathOf(u"a.flac"_s)});
    tab.commandOptions->deselectAllCells();
    tab.executeCommand(nullptr);
    EXPECT_EQ(queue().taskCount(), 0);
    EXPECT_TRUE(tab.fileNames().isEmpty());
}

TEST_F(ChecksumTabTest, TheChoicesOfANewListAreEnabledForThatCommandAlone)
{
    for (const int command : {0, 1, 2}) {
        tab.commandOptions->selectCell(command, 0);
        tab.displayRelevantOptions();
        EXPECT_EQ(tab.createChecksumOptions->isEnabled(), command == 1);
        EXPECT_EQ(tab.sourceSaveButton->isEnabled(), command == 1);
    }
}

TEST_F(ChecksumTabTest, TheChoiceIsExplainedInOneSentence)
{
    QSet<QString> sentences;
    const auto explained = [&](int command, const QString& kind) {
        tab.commandOptions->selectCell(command, 0);
        tab.createChecksumOptions->selectTitle(kind);
        sentences += tab.aboutChoice();
    };
    explained(ChecksumTab::TestFiles, u"MD5"_s);
    for (const QString& kind : {u"MD5"_s, u"ST5"_s, u"FFP"_s})
        explained(ChecksumTab::CreateList, kind);
    explained(ChecksumTab::VerifyLists, u"MD5"_s);
    EXPECT_EQ(sentences.size(), 5);
}
