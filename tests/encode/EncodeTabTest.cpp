#include "encode/EncodeTab.h"

#include "checksum/CreateMD5Task.h"
#include "encode/EncodeALACTask.h"
#include "encode/EncodeALACToAPETask.h"
#include "encode/EncodeALACToFlacTask.h"
#include "encode/EncodeALACToTTATask.h"
#include "encode/EncodeALACToWavpackTask.h"
#include "encode/EncodeApeTask.h"
#include "encode/EncodeFlacTask.h"
#include "encode/EncodeRoutes.h"
#include "encode/EncodeSHNTask.h"
#include "encode/EncodeSHNToFlacTask.h"
#include "encode/EncodeTTATask.h"
#include "encode/EncodeWavpackTask.h"
#include "engine/TaskListener.h"
#include "platform/desktop/ToolsDirectory.h"
#include "platform/errors/Exceptions.h"
#include "support/FakeTools.h"
#include "support/Programs.h"
#include "support/TabFixture.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class EncodeTabTest : public TabFixture<EncodeTab>
{
protected:
    EncodeTabTest() : TabFixture(Constants::ENCODE) { holdQueue(); }
    /// Puts the files into the list as they are: no look at what is in them.
    QStringList enter(const QStringList& names)
    {
        QStringList paths;
        for (const QString& name : names) {
            paths += pathOf(name);
            tab.addFile(pathOf(name));
        }
        return paths;
    }
    void press(const QString& target, const QStringList& names)
    {
        tab.outputFormatMatrix->selectTitle(target);
        enter(names);
        tab.executeCommand(nullptr);
    }
    /// The only task of the queue, as the class expected.
    template <class Task> std::shared_ptr<Task> only()
    {
        const auto tasks = queued<Task>();
        EXPECT_EQ(tasks.size(), 1U);
        return tasks.empty() ? nullptr : tasks[0];
    }
};

} // namespace

TEST_F(EncodeTabTest, EachCellIsATarget)
{
    const auto at = [&](int row, int column) {
        tab.outputFormatMatrix->selectCell(row, column);
        return tab.target();
    };
    EXPECT_EQ(at(0, 0), u"SHN"_s);
    EXPECT_EQ(at(1, 0), u"FLAC"_s);
    EXPECT_EQ(at(2, 0), u"APE"_s);
    EXPECT_EQ(at(0, 1), u"WV"_s);
    EXPECT_EQ(at(1, 1), u"TTA"_s);
    EXPECT_EQ(at(2, 1), u"M4A"_s);
    tab.outputFormatMatrix->deselectAllCells();
    EXPECT_EQ(tab.target(), QString());
}

TEST_F(EncodeTabTest, StartsWithFlacAndTheLevelOfTheSettings)
{
    EXPECT_EQ(tab.target(), u"FLAC"_s);
    EXPECT_EQ(tab.flacSlider->intValue(), 5);
    EXPECT_TRUE(tab.flacSlider->isEnabled()) << "its options are there at once";
}

TEST_F(EncodeTabTest, OnlyTheOptionsOfTheTargetAreEnabledAndTheirStatesStay)
{
    const QHash<QString, std::shared_ptr<Control>> all{{u"md5"_s, tab.generateMD5Button},
                                                       {u"verify"_s, tab.flacVerifyButton},
                                                       {u"lax"_s, tab.flacLaxButton},
                                                       {u"flac"_s, tab.flacSlider},
                                                       {u"keep"_s, tab.flacKeepForeignMetadataButton},
                                                       {u"ape"_s, tab.apeSlider},
                                                       {u"wv"_s, tab.wavepackFormatMatrix}};
    tab.flacLaxButton->setState(true);
    const auto enabled = [&](int row, int column) {
        tab.outputFormatMatrix->clickCell(row, column); // a person's click has the options follow
        QStringList names;
        for (auto each = all.begin(); each != all.end(); ++each) {
            if (each.value()->isEnabled()) names += each.key();
        }
        names.sort();
        return names;
    };
    EXPECT_EQ(enabled(0, 0), QStringList({u"md5"_s}));
    EXPECT_EQ(enabled(1, 0), QStringList({u"flac"_s, u"keep"_s, u"lax"_s, u"verify"_s}));
    EXPECT_EQ(enabled(2, 0), QStringList({u"ape"_s}));
    EXPECT_EQ(enabled(0, 1), QStringList({u"wv"_s}));
    EXPECT_EQ(enabled(1, 1), QStringList());
    EXPECT_EQ(enabled(2, 1), QStringList());
    EXPECT_TRUE(tab.flacLaxButton->state());
}

TEST_F(EncodeTabTest, EmptyListAsksNothing)
{
    tab.deleteOriginalsButton->setState(true);
    tab.sourceEncodeButton->setState(false);
    tab.executeCommand(nullptr);
    EXPECT_TRUE(panels_.alerts().empty());
    EXPECT_TRUE(panels_.openRequests().empty());
}

TEST_F(EncodeTabTest, ConfirmationComesBeforeTheFolderAndEitherLeavesEverythingAsItWas)
{
    tab.deleteOriginalsButton->setState(true);
    tab.sourceEncodeButton->setState(false);
    panels_.answerAlert(0);
    press(u"FLAC"_s, {u"a.wav"_s});
    EXPECT_EQ(panels_.alerts().at(0).title,
              u"You have chosen to delete the original files.  Are you sure you want to continue?"_s);
    EXPECT_TRUE(panels_.openRequests().empty());
    panels_.answerAlert(1);
    panels_.answerOpenPanel(std::nullopt);
    tab.executeCommand(nullptr);
    EXPECT_EQ(panels_.openRequests().size(), 1U);
    EXPECT_EQ(queue().taskCount(), 0);
    EXPECT_EQ(tab.fileNames().count(), 1);
}

TEST_F(EncodeTabTest, ChoicesAreReadBeforeAnythingIsAsked)
{
    struct ChangingPerson : ScriptedPanels
    {
        explicit ChangingPerson(EncodeTab& tab) : tab_(tab) {}
        int runAlert(const QString&, const QString&, const QString&, const QString&, const QString&) override
        {
            tab_.outputFormatMatrix->selectTitle(u"WV"_s);
            tab_.generateMD5Button->setState(true);
            return 1;
        }
        EncodeTab& tab_;
    } person(tab);
    tab.deleteOriginalsButton->setState(true);
    press(u"SHN"_s, {u"a.wav"_s});
    const auto task = only<EncodeSHNTask>();
    ASSERT_NE(task, nullptr);
    EXPECT_EQ(task->results()->taskAfterSetDone(), nullptr);
}

TEST_F(EncodeTabTest, FilesOfTwoFoldersGoBesideTheirSourcesAndTheListIsEmptied)
{
    press(u"FLAC"_s, {u"one/a.wav"_s, u"two/b.wav"_s});
    const auto tasks = queued<EncodeFlacTask>();
    ASSERT_EQ(tasks.size(), 2U);
    EXPECT_EQ(tasks[0]->arguments().last(), pathOf(u"one/a.flac"_s));
    EXPECT_EQ(tasks[1]->arguments().last(), pathOf(u"two/b.flac"_s));
    EXPECT_TRUE(tab.fileNames().isEmpty());
}

TEST_F(EncodeTabTest, OneFolderServesAllFiles)
{
    tab.sourceEncodeButton->setState(false);
    panels_.answerOpenPanel(QStringList{u"/out"_s});
    press(u"FLAC"_s, {u"one/a.wav"_s, u"two/b.wav"_s});
    EXPECT_EQ(queued<EncodeFlacTask>().at(1)->arguments().last(), u"/out/b.flac"_s);
}

TEST_F(EncodeTabTest, FlacVector)
{
    press(u"FLAC"_s, {u"a b.c.wav"_s});
    const auto task = only<EncodeFlacTask>();
    EXPECT_EQ(task->launchPath(), toolPath(u"flac"_s));
    EXPECT_EQ(task->arguments(), QStringList({u"-5"_s, pathOf(u"a b.c.wav"_s), u"-o"_s, pathOf(u"a b.c.flac"_s)}));
    EXPECT_EQ(task->title(), u"a b.c.wav"_s);
}

TEST_F(EncodeTabTest, FlacVectorWithEveryOption)
{
    tab.flacSlider->setIntValue(8);
    tab.flacKeepForeignMetadataButton->setState(true);
    tab.flacVerifyButton->setState(true);
    press(u"FLAC"_s, {u"a.wav"_s});
    EXPECT_EQ(only<EncodeFlacTask>()->arguments(), QStringList({u"-8"_s, u"--keep-foreign-metadata"_s, u"-V"_s,
                                                                pathOf(u"a.wav"_s), u"-o"_s, pathOf(u"a.flac"_s)}));
}

TEST_F(EncodeTabTest, LaxLeavesNoLevel)
{
    tab.flacLaxButton->setState(true);
    tab.flacVerifyButton->setState(true);
    press(u"FLAC"_s, {u"a.wav"_s});
    EXPECT_EQ(only<EncodeFlacTask>()->arguments(),
              QStringList({u"--lax"_s, u"-V"_s, pathOf(u"a.wav"_s), u"-o"_s, pathOf(u"a.flac"_s)}));
}

TEST_F(EncodeTabTest, ShortenVectorHasItsSourceAtIndexNine)
{
    press(u"SHN"_s, {u"a.wav"_s});
    const auto task = only<EncodeSHNTask>();
    EXPECT_EQ(task->launchPath(), toolPath(u"shntool"_s));
    EXPECT_EQ(task->arguments(), QStringList({u"conv"_s, u"-o"_s, u"shn"_s, u"-P"_s, u"pct"_s, u"-O"_s, u"never"_s,
                                              u"-d"_s, folder(), pathOf(u"a.wav"_s)}));
    EXPECT_EQ(task->title(), u"a.wav"_s);
    EXPECT_EQ(task->textField()->stringValue(), u"a.wav"_s);
}

class EncodeTabTools : protected FakeTools, public EncodeTabTest
{
protected:
    EncodeTabTools()
    {
        queue().maxThreadsChanged({QString(), nullptr, 1});
        test::run(u"ffmpeg"_s, {u"-v"_s, u"error"_s, u"-f"_s, u"lavfi"_s, u"-i"_s, u"sine=duration=0.1"_s, u"-c:a"_s,
                                u"alac"_s, pathOf(u"b.m4a"_s)});
    }
    /// What a tool is told for a WAV and for an Apple Lossless source.
    QList<QStringList> told(const QString& tool, const QString& target)
    {
        FakeTools::install(tool);
        press(target, {u"a.wav"_s, u"b.m4a"_s});
        runQueue();
        return calls(tool);
    }
};

TEST_F(EncodeTabTools, WavpacksCellIsItsOption)
{
    for (const auto& [column, option] : {std::pair{0, u"-f"_s}, std::pair{1, u"-h"_s}}) {
        QFile::remove(directory() + u"/wavpack.calls"_s);
        tab.wavepackFormatMatrix->selectCell(0, column);
        const auto all = told(u"wavpack"_s, u"WV"_s);
        ASSERT_EQ(all.size(), 2);
        EXPECT_EQ(all[0].first(), option);
        EXPECT_EQ(all[1].first(), option);
    }
}

TEST_F(EncodeTabTools, MonkeysAudioGetsItsSlidersLevel)
{
    tab.apeSlider->setIntValue(4000);
    const auto all = told(u"mac"_s, u"APE"_s);
    ASSERT_EQ(all.size(), 2);
    EXPECT_EQ(all[0].last(), u"-c4000"_s);
    EXPECT_EQ(all[1].last(), u"-c4000"_s);
}

TEST_F(EncodeTabTools, AppleLosslessToFlacTakesNothingButVerify)
{
    FakeTools::install(u"metaflac"_s);
    tab.flacLaxButton->setState(true);
    tab.flacKeepForeignMetadataButton->setState(true);
    for (const bool verify : {false, true}) {
        QFile::remove(directory() + u"/flac.calls"_s);
        tab.flacVerifyButton->setState(verify);
        QStringList call = told(u"flac"_s, u"FLAC"_s).value(1);
        EXPECT_EQ(call.removeAll(u"-V"_s), verify ? 1 : 0);
        EXPECT_EQ(call, QStringList({call.value(0), u"-o"_s, pathOf(u"b.flac"_s)}));
    }
}

TEST_F(EncodeTabTools, ListOfAShortenSetLiesInTheChosenFolder)
{
    FakeTools::install(u"shntool"_s);
    QDir().mkpath(pathOf(u"out"_s));
    panels_.answerOpenPanel(QStringList{pathOf(u"out"_s)});
    tab.sourceEncodeButton->setState(false);
    tab.generateMD5Button->setState(true);
    press(u"SHN"_s, {u"one/a.wav"_s, u"two/b.wav"_s});
    ASSERT_TRUE(runUntil([this] { return exists(u"out/md5sum.md5"_s); }));
    runQueue();
    QFile list(pathOf(u"out/md5sum.md5"_s));
    ASSERT_TRUE(list.open(QIODevice::ReadOnly));
    const QByteArray text = list.readAll();
    EXPECT_TRUE(text.contains(" *a.shn\n") && text.contains(" *b.shn\n")) << text.toStdString();
}

class ShntoolToFlac : public EncodeTabTest, public testing::WithParamInterface<QString>
{
protected:
    QString specification()
    {
        press(u"FLAC"_s, {GetParam()});
        const QStringList arguments = only<EncodeSHNToFlacTask>()->arguments();
        EXPECT_EQ(arguments.first(8),
                  QStringList({u"conv"_s, u"-P"_s, u"pct"_s, u"-O"_s, u"never"_s, u"-d"_s, folder(), u"-o"_s}));
        EXPECT_EQ(arguments.at(9), pathOf(GetParam()));
        EXPECT_EQ(arguments.size(), 10);
        return arguments.at(8);
    }
};

INSTANTIATE_TEST_SUITE_P(Sources, ShntoolToFlac, testing::Values(u"a.shn"_s, u"a.ape"_s, u"a.SHN"_s));

TEST_P(ShntoolToFlac, LevelStandsBeforeTwoBlanks)
{
    EXPECT_EQ(specification(), u"cust ext=flac flac -5  -o %f -"_s);
}

TEST_P(ShntoolToFlac, VerifyHasTwoBlanksOnEitherSide)
{
    tab.flacVerifyButton->setState(true);
    EXPECT_EQ(specification(), u"cust ext=flac flac -5  -V  -o %f -"_s);
}

TEST_P(ShntoolToFlac, LaxKeepsLevelAndVerifyFromFlac)
{
    tab.flacVerifyButton->setState(true);
    tab.flacLaxButton->setState(true);
    tab.flacKeepForeignMetadataButton->setState(true);
    EXPECT_EQ(specification(), u"cust ext=flac flac --lax -o %f -"_s);
}

namespace {

template <class Task> bool isOfClass(const ZOLTTask& task)
{
    return typeid(task) == typeid(Task);
}

/// For each target: the class for a source of each kind.
struct Way
{
    QString target;
    QStringList sources;
    bool (*isRightClass)(const ZOLTTask& task);
};

const std::vector<Way>& ways()
{
    static const QStringList all{u"a.wav"_s, u"a.aif"_s, u"a.aiff"_s, u"a.flac"_s, u"a.shn"_s,
                                 u"a.ape"_s, u"a.wv"_s,  u"a.tta"_s,  u"a.m4a"_s,  u"a.WAV"_s};
    static const QStringList plain{u"a.wav"_s, u"a.aif"_s, u"a.aiff"_s, u"a.flac"_s, u"a.shn"_s,
                                   u"a.ape"_s, u"a.wv"_s,  u"a.tta"_s,  u"a.Aiff"_s};
    static const QStringList apple{u"a.m4a"_s, u"a.M4A"_s};
    static const std::vector<Way> table{
        {u"SHN"_s, all, isOfClass<EncodeSHNTask>},
        {u"FLAC"_s, {u"a.shn"_s, u"a.ape"_s, u"a.APE"_s}, isOfClass<EncodeSHNToFlacTask>},
        {u"FLAC"_s, apple, isOfClass<EncodeALACToFlacTask>},
        {u"FLAC"_s,
         {u"a.wav"_s, u"a.aif"_s, u"a.aiff"_s, u"a.flac"_s, u"a.wv"_s, u"a.tta"_s, u"a"_s},
         isOfClass<EncodeFlacTask>},
        {u"APE"_s, apple, isOfClass<EncodeALACToAPETask>},
        {u"APE"_s, plain, isOfClass<EncodeApeTask>},
        {u"WV"_s, apple, isOfClass<EncodeALACToWavpackTask>},
        {u"WV"_s, plain, isOfClass<EncodeWavpackTask>},
        {u"TTA"_s, apple, isOfClass<EncodeALACToTTATask>},
        {u"TTA"_s, plain, isOfClass<EncodeTTATask>},
        {u"M4A"_s, all, isOfClass<EncodeALACTask>},
    };
    return table;
}

} // namespace

TEST_F(EncodeTabTest, EverySourceTakesItsWayToEveryTarget)
{
    for (const Way& way : ways()) {
        for (const QString& source : way.sources) {
            const auto before = queue().taskArray().size();
            press(way.target, {source});
            const auto tasks = queue().taskArray();
            ASSERT_EQ(tasks.size(), before + 1);
            EXPECT_TRUE(way.isRightClass(*tasks.back()))
                << way.target.toStdString() << " from " << source.toStdString();
        }
    }
}

TEST_F(EncodeTabTest, NoCellGivesNoTaskAndEmptiesTheList)
{
    tab.outputFormatMatrix->deselectAllCells();
    enter({u"a.wav"_s});
    tab.executeCommand(nullptr);
    EXPECT_EQ(queue().taskCount(), 0);
    EXPECT_TRUE(tab.fileNames().isEmpty());
}

TEST_F(EncodeTabTest, ShortenTasksShareOneReportAndAreFollowedByTheList)
{
    tab.generateMD5Button->setState(true);
    press(u"SHN"_s, {u"b/one.flac"_s, u"a/two.wav"_s});
    const auto tasks = queued<EncodeSHNTask>();
    ASSERT_EQ(tasks.size(), 2U);
    const auto set = tasks[0]->results();
    EXPECT_EQ(tasks[1]->results(), set);
    EXPECT_EQ(set->tasksInSet(), ZOLTTaskResults::Tasks({tasks[0], tasks[1]}));
    const auto list = std::dynamic_pointer_cast<CreateMD5Task>(set->taskAfterSetDone());
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->title(), u"Create MD5 checksum file"_s);
    EXPECT_EQ(queue().taskCount(), 2) << "the list waits for the set";
}

TEST_F(EncodeTabTest, WithoutTheOptionNothingFollows)
{
    press(u"SHN"_s, {u"a.wav"_s});
    EXPECT_EQ(only<EncodeSHNTask>()->results()->taskAfterSetDone(), nullptr);
}

TEST_F(EncodeTabTest, FlacOverItsOwnSourceIsLeftToTheTool)
{
    press(u"FLAC"_s, {u"a.flac"_s});
    EXPECT_EQ(only<EncodeFlacTask>()->arguments().last(), pathOf(u"a.flac"_s));
}

TEST_F(EncodeTabTest, TasksKnowTheirSources)
{
    for (const auto& [target, name] :
         {std::pair{u"FLAC"_s, u"a.wav"_s}, {u"SHN"_s, u"b.wav"_s}, {u"FLAC"_s, u"c.ape"_s}}) {
        press(target, {name});
        EXPECT_EQ(queue().taskArray().back()->source(), pathOf(name));
    }
    tab.sourceEncodeButton->setState(false);
    panels_.answerOpenPanel(QStringList{pathOf(u"d.wav"_s)}); // a folder that bears the source's name
    press(u"SHN"_s, {u"d.wav"_s});
    EXPECT_EQ(queue().taskArray().back()->source(), pathOf(u"d.wav"_s));
}

TEST_F(EncodeTabTest, AppleLosslessSourceThatIsToBeDeletedStopsTheCommand)
{
    for (const QString& target : {u"FLAC"_s, u"APE"_s, u"WV"_s, u"TTA"_s}) {
        const auto before = queue().taskArray().size();
        tab.clearFiles();
        tab.deleteOriginalsButton->setState(true);
        panels_.answerAlert(1);
        EXPECT_THROW(press(target, {u"a.wav"_s, u"b.m4a"_s, u"c.wav"_s}), InvalidArgumentException);
        EXPECT_EQ(queue().taskArray().size(), before + 1) << "what came before it stays queued";
        EXPECT_EQ(tab.fileNames().count(), 3);
    }
}

TEST_F(EncodeTabTest, AppleLosslessTargetCanDeleteItsSource)
{
    tab.deleteOriginalsButton->setState(true);
    panels_.answerAlert(1);
    press(u"M4A"_s, {u"b.m4a"_s});
    EXPECT_TRUE(only<EncodeALACTask>()->deleteOriginal());
}

TEST_F(EncodeTabTest, TasksKnowOfTheDeletionBeforeTheyAreQueued)
{
    struct Watcher : TaskListener
    {
        void taskAdded(const std::shared_ptr<ZOLTTask>& task) override
        {
            known += std::dynamic_pointer_cast<EncodeFlacTask>(task)->deleteOriginal();
        }
        void taskEnded(const std::shared_ptr<ZOLTTask>&) override {}
        QList<bool> known;
    } watcher;
    queue().setListener(&watcher);
    tab.deleteOriginalsButton->setState(true);
    panels_.answerAlert(1);
    press(u"FLAC"_s, {u"a.wav"_s});
    tab.deleteOriginalsButton->setState(false);
    press(u"FLAC"_s, {u"a.wav"_s});
    queue().setListener(nullptr);
    EXPECT_EQ(watcher.known, QList<bool>({true, false}));
}

TEST_F(EncodeTabTest, LevelsAreToldInWords)
{
    EXPECT_EQ(tab.flacLevelInWords(), u"Level 5 of 8, the usual"_s);
    tab.flacSlider->setIntValue(6);
    EXPECT_EQ(tab.flacLevelInWords(), u"Level 6 of 8"_s);
    tab.flacLaxButton->setState(true);
    EXPECT_EQ(tab.flacLevelInWords(), u"Level: flac's own"_s);
    EXPECT_EQ(tab.apeLevelInWords(), u"Level 2000, normal"_s);
    tab.apeSlider->setIntValue(5000);
    EXPECT_EQ(tab.apeLevelInWords(), u"Level 5000, slowest"_s);
}

class EncodePlan : public EncodeTabTest
{
protected:
    WorkPlan planned(const QString& target, const QStringList& names)
    {
        tab.outputFormatMatrix->selectTitle(target);
        tab.clearFiles();
        enter(names);
        return tab.workPlan();
    }
    QStringList tools(const QString& target, const QString& name) { return planned(target, {name}).tools; }
    QString caution(const QString& target, const QString& name) { return planned(target, {name}).items.at(0).caution; }
};

TEST_F(EncodePlan, WordsTellTargetAndOptions)
{
    EXPECT_EQ(planned(u"FLAC"_s, {u"a.wav"_s, u"b.wav"_s}).words, u"2 WAV files to FLAC (level 5)"_s);
    tab.flacVerifyButton->setState(true);
    tab.flacLaxButton->setState(true);
    tab.flacKeepForeignMetadataButton->setState(true);
    EXPECT_EQ(planned(u"FLAC"_s, {u"a.wav"_s}).words, u"1 WAV file to FLAC (lax, verified, foreign metadata kept)"_s);
    EXPECT_EQ(planned(u"APE"_s, {u"a.wav"_s}).words, u"1 WAV file to APE (level 2000)"_s);
    EXPECT_EQ(planned(u"WV"_s, {u"a.wav"_s}).words, u"1 WAV file to WV (fast)"_s);
    EXPECT_EQ(planned(u"TTA"_s, {u"a.wav"_s}).words, u"1 WAV file to TTA"_s);
    EXPECT_EQ(planned(u"SHN"_s, {u"a.wav"_s}).words, u"1 WAV file to SHN"_s);
    tab.generateMD5Button->setState(true);
    EXPECT_EQ(planned(u"SHN"_s, {u"a.wav"_s}).words, u"1 WAV file to SHN (with an MD5 list)"_s);
    tab.outputFormatMatrix->deselectAllCells();
    EXPECT_EQ(tab.workPlan().words, u"No output format is selected"_s);
    EXPECT_EQ(tab.workPlan().passedOver, QList<qsizetype>({0}));
}

TEST_F(EncodePlan, OutputsAreNamedAsTheToolsNameThem)
{
    const auto output = [&](const QString& target, const QString& name) {
        return planned(target, {name}).items.at(0).outputs;
    };
    EXPECT_EQ(output(u"FLAC"_s, u"a.WAV"_s), QStringList({pathOf(u"a.flac"_s)}));
    EXPECT_EQ(output(u"M4A"_s, u"a.shn"_s), QStringList({pathOf(u"a.m4a"_s)}));
    EXPECT_EQ(output(u"SHN"_s, u"a.b.wav"_s), QStringList({pathOf(u"a.b.shn"_s)}));
    EXPECT_EQ(output(u"SHN"_s, u"a.WAV"_s), QStringList({pathOf(u"a.shn"_s)}));
    EXPECT_EQ(output(u"SHN"_s, u"a.aif"_s), QStringList({pathOf(u"a.shn"_s)}));
    EXPECT_EQ(output(u"FLAC"_s, u"a.ape"_s), QStringList({pathOf(u"a.flac"_s)}));
    EXPECT_EQ(output(u"FLAC"_s, u"a.SHN"_s), QStringList({pathOf(u"a.flac"_s)}));
}

TEST_F(EncodePlan, ToolsThatReplaceWhatIsThereAreKnown)
{
    for (const QString& target : {u"SHN"_s, u"FLAC"_s, u"WV"_s})
        EXPECT_EQ(planned(target, {u"a.wav"_s}).items.at(0).existing, WorkItem::Existing::Refused);
    for (const QString& target : {u"APE"_s, u"TTA"_s, u"M4A"_s})
        EXPECT_EQ(planned(target, {u"a.wav"_s}).items.at(0).existing, WorkItem::Existing::Overwritten);
}

TEST_F(EncodePlan, ToolsAreThoseOfTheWayOnce)
{
    EXPECT_EQ(tools(u"SHN"_s, u"a.wav"_s), QStringList({u"shntool"_s, u"shorten"_s}));
    EXPECT_EQ(tools(u"SHN"_s, u"a.aiff"_s), QStringList({u"shntool"_s, u"shorten"_s, u"sox"_s}));
    EXPECT_EQ(tools(u"SHN"_s, u"a.wv"_s), QStringList({u"shntool"_s, u"shorten"_s, u"wvunpack"_s}));
    EXPECT_EQ(tools(u"FLAC"_s, u"a.wav"_s), QStringList({u"flac"_s}));
    EXPECT_EQ(tools(u"FLAC"_s, u"a.aif"_s), QStringList({u"flac"_s, u"metaflac"_s}));
    EXPECT_EQ(tools(u"FLAC"_s, u"a.m4a"_s), QStringList({u"flac"_s, u"metaflac"_s}));
    EXPECT_EQ(tools(u"FLAC"_s, u"a.ape"_s), QStringList({u"shntool"_s, u"flac"_s, u"mac"_s}));
    EXPECT_EQ(tools(u"M4A"_s, u"a.shn"_s), QStringList({u"shntool"_s, u"AtomicParsley"_s, u"shorten"_s}));
    EXPECT_EQ(tools(u"M4A"_s, u"a.flac"_s), QStringList({u"flac"_s, u"AtomicParsley"_s}));
    EXPECT_EQ(tools(u"M4A"_s, u"a.ape"_s), QStringList({u"mac"_s, u"AtomicParsley"_s}));
    EXPECT_EQ(tools(u"M4A"_s, u"a.wav"_s), QStringList({u"AtomicParsley"_s}));
    EXPECT_EQ(tools(u"WV"_s, u"a.aif"_s), QStringList({u"wavpack"_s}));
    EXPECT_EQ(planned(u"FLAC"_s, {u"a.wav"_s, u"b.aif"_s}).tools, QStringList({u"flac"_s, u"metaflac"_s}));
}

TEST_F(EncodePlan, WavOnTheWayIsKnown)
{
    const auto staged = [&](const QString& target, const QStringList& names) {
        QStringList found;
        for (const WorkItem& item : planned(target, names).items) {
            if (item.staged) found += path::lastComponent(item.source);
        }
        return found;
    };
    const QStringList all{u"a.wav"_s, u"a.aif"_s, u"a.AIFF"_s, u"a.flac"_s, u"a.shn"_s,
                          u"a.ape"_s, u"a.wv"_s,  u"a.tta"_s,  u"a.m4a"_s};
    EXPECT_EQ(staged(u"SHN"_s, all), QStringList());
    EXPECT_EQ(staged(u"FLAC"_s, all), QStringList({u"a.m4a"_s}));
    for (const QString& target : {u"APE"_s, u"WV"_s, u"TTA"_s})
        EXPECT_EQ(staged(target, all), QStringList({u"a.AIFF"_s, u"a.aif"_s, u"a.m4a"_s})) << target.toStdString();
    EXPECT_EQ(staged(u"M4A"_s, all), QStringList({u"a.ape"_s, u"a.flac"_s, u"a.shn"_s}));
}

TEST_F(EncodePlan, SourcesThatTheToolDeclinesAreToldBeforehand)
{
    EXPECT_EQ(caution(u"WV"_s, u"a.flac"_s),
              u"wavpack takes no FLAC files: they will fail unless you leave them out, or decode them first"_s);
    EXPECT_FALSE(caution(u"M4A"_s, u"a.wv"_s).isEmpty());
    EXPECT_FALSE(caution(u"FLAC"_s, u"a.TTA"_s).isEmpty());
    for (const QString& target : {u"SHN"_s, u"FLAC"_s, u"APE"_s, u"WV"_s, u"TTA"_s, u"M4A"_s})
        EXPECT_TRUE(caution(target, u"a.wav"_s).isEmpty());
}

TEST_F(EncodePlan, StopAtAnAppleLosslessSourceIsToldBeforehand)
{
    tab.deleteOriginalsButton->setState(true);
    EXPECT_EQ(caution(u"TTA"_s, u"a.m4a"_s),
              u"The original of an M4A file cannot be deleted after encoding to TTA: the command stops at the first of "
              "them"_s);
    EXPECT_TRUE(caution(u"M4A"_s, u"a.m4a"_s).contains(u"takes no M4A files"_s)) << "that one stops nothing";
    tab.deleteOriginalsButton->setState(false);
    EXPECT_TRUE(caution(u"TTA"_s, u"a.m4a"_s).isEmpty());
}

TEST_F(EncodePlan, OriginalsOfFlacFilesAreToldToMissTheTrash)
{
    for (const QString& source : {u"a.wav"_s, u"a.aiff"_s, u"a.shn"_s, u"a.ape"_s})
        EXPECT_TRUE(planned(u"FLAC"_s, {source}).neverToTrash) << source.toStdString();
    for (const QString& target : {u"SHN"_s, u"WV"_s, u"TTA"_s, u"APE"_s, u"M4A"_s})
        EXPECT_FALSE(planned(target, {u"a.wav"_s}).neverToTrash) << target.toStdString();
}

TEST_F(EncodePlan, PlacesFollowTheChoices)
{
    tab.deleteOriginalsButton->setState(true);
    EXPECT_TRUE(planned(u"FLAC"_s, {u"a.wav"_s}).deletes);
    EXPECT_TRUE(tab.workPlan().besideSources);
    tab.sourceEncodeButton->setState(false);
    EXPECT_TRUE(tab.workPlan().needsFolder);
    tab.setDestination(u"/out"_s);
    EXPECT_EQ(tab.workPlan().items.at(0).outputs, QStringList({u"/out/a.flac"_s}));
}
