#include "DecodeFixture.h"

#include "decode/DecodeALACTask.h"
#include "decode/DecodeAPETask.h"
#include "decode/DecodeSHNTask.h"
#include "decode/DecodeTTATask.h"
#include "decode/DecodeWavpackTask.h"

#include "engine/ZOLTTask.h"
#include "platform/desktop/ToolsDirectory.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

/// Something changes while a question is open.
class MeddlingPanels : public ScriptedPanels
{
public:
    explicit MeddlingPanels(std::function<void()> meddle) : meddle_(std::move(meddle)) { installPanels(this); }
    int runAlert(const QString& title, const QString& message, const QString& defaultButton,
                 const QString& alternateButton, const QString& otherButton) override
    {
        meddle_();
        return ScriptedPanels::runAlert(title, message, defaultButton, alternateButton, otherButton);
    }

private:
    const std::function<void()> meddle_;
};

} // namespace

class DecodeTabTest : public DecodeTest
{
protected:
    std::vector<std::shared_ptr<DecodeFlacTask>> queued() { return DecodeTest::queued<DecodeFlacTask>(); }
};

TEST_F(DecodeTabTest, FlacVectorForWav)
{
    EXPECT_EQ(tab.flacArguments(u"/in/a b.c.flac"_s, u"/out"_s, u"WAV"_s),
              QStringList({u"-d"_s, u"/in/a b.c.flac"_s, u"-o"_s, u"/out/a b.c.wav"_s}));
}

TEST_F(DecodeTabTest, FlacVectorForAiffWithBothOptions)
{
    tab.decodeFlacThroughErrors->setState(true);
    tab.flacKeepForeignMetadataButton->setState(true);
    EXPECT_EQ(tab.flacArguments(u"/in/a.flac"_s, u"/out"_s, u"AIFF"_s),
              QStringList({u"-d"_s, u"--keep-foreign-metadata"_s, u"-F"_s, u"--force-aiff-format"_s, u"/in/a.flac"_s,
                           u"-o"_s, u"/out/a.aiff"_s}));
}

TEST_F(DecodeTabTest, FlacTaskRunsFlacOfTheToolsDirectoryAndIsNamedByItsSource)
{
    const auto task = tab.decodeFlacOutputPathForFormatInQueue(u"/in/a.flac"_s, u"/out"_s, u"WAV"_s, nullptr);
    EXPECT_EQ(task->launchPath(), toolPath(u"flac"_s));
    EXPECT_EQ(task->title(), u"a.flac"_s);
    EXPECT_EQ(task->textField()->stringValue(), u"a.flac"_s);
    task->setResults(nullptr);
}

TEST_F(DecodeTabTest, ShortenVectorHasItsSourceAtIndexNine)
{
    const QStringList wav = DecodeTab::shnArguments(u"/in/a.shn"_s, u"/out"_s, u"WAV"_s);
    EXPECT_EQ(wav, QStringList({u"conv"_s, u"-o"_s, u"wav"_s, u"-P"_s, u"pct"_s, u"-O"_s, u"never"_s, u"-d"_s,
                                u"/out"_s, u"/in/a.shn"_s}));
    EXPECT_EQ(wav.at(9), u"/in/a.shn"_s);
    EXPECT_EQ(DecodeTab::shnArguments(u"/in/a.shn"_s, u"/out"_s, u"AIFF"_s).at(2), u"aiff"_s);
}

TEST_F(DecodeTabTest, WavpackVectorGoesThroughTheCustomOutput)
{
    EXPECT_EQ(DecodeTab::wavpackArguments(u"/in/a.wv"_s, u"/out"_s, u"WAV"_s),
              QStringList({u"conv"_s, u"-o"_s, u"cust ext=wav wvunpack %f -"_s, u"-P"_s, u"pct"_s, u"-O"_s, u"never"_s,
                           u"-d"_s, u"/out"_s, u"/in/a.wv"_s}));
    EXPECT_EQ(DecodeTab::wavpackArguments(u"/in/a.wv"_s, u"/out"_s, u"other"_s).at(2),
              u"cust ext=aiff wvunpack %f -"_s);
}

TEST_F(DecodeTabTest, ListTakesDroppedFilesOnceTheTabIsAwake)
{
    EXPECT_TRUE(tab.tableView->acceptsFileDrops());
}

TEST_F(DecodeTabTest, FlacOptionsShowWithTheFirstFlacFileAndGoWithTheList)
{
    const auto shown = [&] {
        return !tab.decodeFlacThroughErrors->isHidden() && !tab.flacKeepForeignMetadataButton->isHidden() &&
               !tab.flacOptionsLabel->isHidden();
    };
    EXPECT_FALSE(shown());
    tab.addFiles({u"/a.shn"_s});
    EXPECT_FALSE(shown());
    tab.addFiles({u"/b.FLAC"_s});
    EXPECT_TRUE(shown());
    tab.removeRows({0, 1});
    EXPECT_TRUE(shown());
    tab.clearFiles();
    EXPECT_FALSE(shown());
}

TEST_F(DecodeTabTest, FlacOptionsFollowTheListNotWhatCameIn)
{
    holdQueue();
    tab.addFiles({u"/a.flac"_s, u"/b.flac"_s});
    tab.executeCommandWithout({1});
    EXPECT_FALSE(tab.flacOptionsLabel->isHidden()) << "for the one that was left out";
    tab.clearFiles();
    tab.addFiles({u"/a.shn"_s, u"/b.flac"_s});
    tab.executeCommandWithout({0});
    EXPECT_TRUE(tab.flacOptionsLabel->isHidden());
}

TEST_F(DecodeTabTest, ChoicesAreReadBeforeAnythingIsAsked)
{
    holdQueue();
    tab.addFiles({u"/a.flac"_s});
    tab.deleteOriginalsButton->setState(true);
    MeddlingPanels meddling([this] { tab.outputFormatMatrix->selectTitle(Constants::AIFF); });
    meddling.answerAlert(alertReply::defaultButton);
    tab.executeCommand(nullptr);
    installPanels(&panels_);
    ASSERT_EQ(queued().size(), 1U);
    EXPECT_EQ(queued()[0]->arguments().last(), u"/a.wav"_s);
}

TEST_F(DecodeTabTest, OneFlacOneWavpackAndOneFileWithoutExtensionMakeTwoTasks)
{
    holdQueue();
    tab.addFiles({u"/a.flac"_s, u"/b.wv"_s, u"/notes"_s});
    tab.executeCommand(nullptr);
    EXPECT_EQ(queue().taskCount(), 2);
    EXPECT_TRUE(tab.fileNames().isEmpty());
}

TEST_F(DecodeTabTest, EmptyListDoesNothing)
{
    tab.deleteOriginalsButton->setState(true);
    tab.executeCommand(nullptr);
    EXPECT_TRUE(panels_.alerts().empty());
    EXPECT_EQ(queue().taskCount(), 0);
}

TEST_F(DecodeTabTest, FilesOfTwoFoldersDecodeBesideTheirSources)
{
    holdQueue();
    tab.addFiles({u"/one/a.flac"_s, u"/two/b.flac"_s});
    tab.executeCommand(nullptr);
    ASSERT_EQ(queued().size(), 2U);
    EXPECT_EQ(queued()[0]->arguments().last(), u"/one/a.wav"_s);
    EXPECT_EQ(queued()[1]->arguments().last(), u"/two/b.wav"_s);
    EXPECT_TRUE(tab.fileNames().isEmpty());
    EXPECT_TRUE(tab.decodeFlacThroughErrors->isHidden());
}

TEST_F(DecodeTabTest, OneChosenFolderServesAllFiles)
{
    holdQueue();
    tab.sourceDecodeButton->setState(false);
    tab.outputFormatMatrix->selectTitle(u"AIFF"_s);
    tab.addFiles({u"/one/a.flac"_s, u"/two/b.flac"_s});
    panels_.answerOpenPanel(QStringList{u"/out"_s});
    tab.executeCommand(nullptr);
    EXPECT_EQ(panels_.openRequests().size(), 1U);
    ASSERT_EQ(queued().size(), 2U);
    EXPECT_EQ(queued()[0]->arguments().last(), u"/out/a.aiff"_s);
    EXPECT_EQ(queued()[1]->arguments().last(), u"/out/b.aiff"_s);
}

TEST_F(DecodeTabTest, CancelledFolderPanelQueuesNothingAndKeepsTheList)
{
    tab.sourceDecodeButton->setState(false);
    tab.addFiles({u"/one/a.flac"_s});
    panels_.answerOpenPanel(std::nullopt);
    tab.executeCommand(nullptr);
    EXPECT_EQ(queue().taskCount(), 0);
    EXPECT_EQ(tab.fileNames().count(), 1);
}

TEST_F(DecodeTabTest, DeletionIsConfirmedFirst)
{
    holdQueue();
    tab.deleteOriginalsButton->setState(true);
    tab.addFiles({u"/one/a.flac"_s});
    panels_.answerAlert(0);
    tab.executeCommand(nullptr);
    EXPECT_EQ(panels_.alerts()[0].title,
              u"You have chosen to delete the original files.  Are you sure you want to continue?"_s);
    EXPECT_EQ(panels_.alerts()[0].message, QString());
    EXPECT_EQ(panels_.alerts()[0].buttons, QStringList({u"Yes"_s, u"No"_s}));
    EXPECT_EQ(queue().taskCount(), 0);
    EXPECT_EQ(tab.fileNames().count(), 1);
    panels_.answerAlert(1);
    tab.executeCommand(nullptr);
    ASSERT_EQ(queued().size(), 1U);
    EXPECT_TRUE(queued()[0]->deleteOriginal());
}

TEST_F(DecodeTabTest, SourcesAreKeptUnlessAskedOtherwise)
{
    holdQueue();
    tab.addFiles({u"/one/a.flac"_s});
    tab.executeCommand(nullptr);
    EXPECT_FALSE(queued()[0]->deleteOriginal());
}

TEST_F(DecodeTabTest, FileWithoutExtensionIsSkippedWithoutAWordAndTheListCleared)
{
    holdQueue();
    tab.addFiles({u"/one/a.flac"_s, u"/one/plain"_s});
    tab.executeCommand(nullptr);
    EXPECT_EQ(queued().size(), 1U);
    EXPECT_TRUE(panels_.alerts().empty());
    EXPECT_TRUE(tab.fileNames().isEmpty());
}

TEST_F(DecodeTabTest, SameFileTwiceMakesTwoTasks)
{
    holdQueue();
    tab.addFiles({u"/one/a.flac"_s, u"/one/a.flac"_s});
    tab.executeCommand(nullptr);
    EXPECT_EQ(queued().size(), 2U);
}

TEST_F(DecodeTabTest, ToolsAreNamedForTheLookUpBeforeThePress)
{
    EXPECT_EQ(tab.toolsNeeded(), QStringList());
    tab.addFiles({u"/one/a.flac"_s});
    EXPECT_EQ(tab.toolsNeeded(), QStringList{u"flac"_s});
    tab.outputFormatMatrix->selectTitle(u"AIFF"_s);
    EXPECT_EQ(tab.toolsNeeded(), QStringList({u"flac"_s, u"metaflac"_s}));
}

TEST_F(DecodeTabTest, FormatsAreWavAndAiffInThisOrder)
{
    EXPECT_EQ(tab.outputFormatMatrix->cellAt(0, 0).title, u"WAV"_s);
    EXPECT_EQ(tab.outputFormatMatrix->cellAt(1, 0).title, u"AIFF"_s);
    EXPECT_EQ(tab.outputFormat(), u"WAV"_s);
}

TEST_F(DecodeTabTest, ThePlanTellsOutputsOfEachSource)
{
    tab.addFiles({u"/one/a.flac"_s, u"/one/plain"_s, u"/two/b.FLAC"_s});
    const WorkPlan plan = tab.workPlan();
    ASSERT_EQ(plan.items.size(), 2U);
    EXPECT_EQ(plan.items[0].outputs, QStringList{u"/one/a.wav"_s});
    EXPECT_EQ(plan.items[1].outputs, QStringList{u"/two/b.wav"_s});
    EXPECT_EQ(plan.items[1].source, u"/two/b.FLAC"_s);
    EXPECT_EQ(plan.items[1].row, 2);
    EXPECT_EQ(plan.passedOver, QList<qsizetype>{1});
    EXPECT_EQ(plan.words, u"2 FLAC files to WAV"_s);
    EXPECT_TRUE(plan.besideSources);
    EXPECT_FALSE(plan.needsFolder || plan.deletes);
}

TEST_F(DecodeTabTest, ThePlanFollowsChoicesAndDestination)
{
    tab.addFiles({u"/one/a.flac"_s});
    tab.outputFormatMatrix->selectTitle(u"AIFF"_s);
    tab.sourceDecodeButton->setState(false);
    tab.deleteOriginalsButton->setState(true);
    EXPECT_EQ(tab.workPlan().items[0].outputs, QStringList{u"a.aiff"_s});
    tab.setDestination(u"/out"_s);
    const WorkPlan plan = tab.workPlan();
    EXPECT_EQ(plan.items[0].outputs, QStringList{u"/out/a.aiff"_s});
    EXPECT_EQ(plan.folder, u"/out"_s);
    EXPECT_TRUE(plan.needsFolder && plan.deletes);
    EXPECT_EQ(plan.words, u"1 FLAC file to AIFF"_s);
}

TEST_F(DecodeTabTest, EveryOutletIsNamedOnce)
{
    QStringList names;
    for (const Outlet& outlet : tab.outlets())
        names += outlet.name;
    EXPECT_EQ(names,
              QStringList({u"outputFormatMatrix"_s, u"flacOptionsLabel"_s, u"decodeFlacThroughErrors"_s,
                           u"flacKeepForeignMetadataButton"_s, u"sourceDecodeButton"_s, u"deleteOriginalsButton"_s}));
}

TEST_F(DecodeTabTest, EachExtensionGetsItsTaskWhateverItsLetters)
{
    holdQueue();
    QStringList files;
    for (const char* name : {"a.FLAC", "b.shn", "c.Wv", "d.tta", "e.m4a", "f.APE", "g.wav"})
        files += file(QLatin1StringView(name));
    for (const QString& each : files)
        tab.addFile(each);
    tab.executeCommand(nullptr);
    const auto tasks = queue().taskArray();
    ASSERT_EQ(tasks.size(), 6U) << "the last is skipped";
    EXPECT_TRUE(std::dynamic_pointer_cast<DecodeFlacTask>(tasks[0]));
    EXPECT_TRUE(std::dynamic_pointer_cast<DecodeSHNTask>(tasks[1]));
    EXPECT_TRUE(std::dynamic_pointer_cast<DecodeWavpackTask>(tasks[2]));
    EXPECT_TRUE(std::dynamic_pointer_cast<DecodeTTATask>(tasks[3]));
    EXPECT_TRUE(std::dynamic_pointer_cast<DecodeALACTask>(tasks[4]));
    EXPECT_TRUE(std::dynamic_pointer_cast<DecodeAPETask>(tasks[5]));
    for (std::size_t i = 0; i < tasks.size(); ++i)
        EXPECT_EQ(tasks[i]->title(), path::lastComponent(files[qsizetype(i)]));
}

TEST_F(DecodeTabTest, EveryKindOfTaskIsToldToDeleteItsSource)
{
    const LogCapture log;
    holdQueue();
    for (const char* name : {"a.flac", "b.shn", "c.wv", "d.tta", "e.m4a", "f.ape"})
        tab.addFile(file(QLatin1StringView(name)));
    tab.deleteOriginalsButton->setState(true);
    panels_.answerAlert(1);
    tab.executeCommand(nullptr);
    EXPECT_EQ(queue().taskCount(), 6) << "none of them objects";
    EXPECT_TRUE(DecodeTest::queued<DecodeTTATask>()[3]->deleteOriginal());
    EXPECT_TRUE(DecodeTest::queued<DecodeALACTask>()[4]->deleteOriginal());
}

TEST_F(DecodeTabTest, UnusedWavpackCallIsAShortenTaskOfWvunpack)
{
    const auto task = tab.decodeWavpackOutputPathForFormatInQueue(u"/in/a.wv"_s, u"/out"_s, u"WAV"_s, nullptr);
    EXPECT_EQ(task->launchPath(), toolPath(u"wvunpack"_s));
    EXPECT_EQ(task->title(), u"a.wv"_s);
    task->setResults(nullptr);
}

TEST_F(DecodeTabTest, ThePlanKnowsHowEachToolNamesAndTreatsItsOutput)
{
    using enum WorkItem::Existing;
    struct Expected
    {
        QString source, wav, aiff;
        WorkItem::Existing existingWav, existingAiff;
        QStringList tools;
    };
    const std::vector<Expected> rows{
        {u"a.flac"_s, u"a.wav"_s, u"a.aiff"_s, Refused, Refused, {u"flac"_s}},
        {u"a.shn"_s, u"a.wav"_s, u"a.aiff"_s, Refused, Refused, {u"shntool"_s, u"shorten"_s}},
        {u"a.SHN"_s, u"a.wav"_s, u"a.aiff"_s, Refused, Refused, {u"shntool"_s, u"shorten"_s}},
        {u"a.wv"_s, u"a.wav"_s, u"a.aiff"_s, Refused, Overwritten, {u"wvunpack"_s}},
        {u"a.TTA"_s, u"a.wav"_s, u"a.aiff"_s, Overwritten, Overwritten, {u"ttaenc"_s}},
        {u"a.m4a"_s, u"a.wav"_s, u"a.aiff"_s, Overwritten, Overwritten, {}},
        {u"a.ape"_s, u"a.wav"_s, u"a.aiff"_s, Overwritten, Overwritten, {u"mac"_s}},
    };
    for (const Expected& row : rows) {
        tab.clearFiles();
        tab.addFile(u"/in/"_s + row.source);
        tab.outputFormatMatrix->selectTitle(u"WAV"_s);
        EXPECT_EQ(tab.workPlan().items.at(0).outputs, QStringList{u"/in/"_s + row.wav});
        EXPECT_EQ(tab.workPlan().items.at(0).existing, row.existingWav) << row.source.toStdString();
        EXPECT_EQ(tab.workPlan().tools, row.tools);
        tab.outputFormatMatrix->selectTitle(u"AIFF"_s);
        EXPECT_EQ(tab.workPlan().items.at(0).outputs, QStringList{u"/in/"_s + row.aiff});
        EXPECT_EQ(tab.workPlan().items.at(0).existing, row.existingAiff) << row.source.toStdString();
    }
}

TEST_F(DecodeTabTest, DeletionOfTrueAudioIsCautionedAgainst)
{
    tab.addFile(u"/in/a.tta"_s);
    tab.addFile(u"/in/b.ape"_s);
    EXPECT_EQ(tab.workPlan().items[0].caution, QString());
    tab.deleteOriginalsButton->setState(true);
    EXPECT_EQ(tab.workPlan().items[0].caution, u"A TTA file is deleted even if it cannot be decoded: test it first"_s);
    EXPECT_EQ(tab.workPlan().items[1].caution, QString());
}
