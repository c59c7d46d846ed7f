#include "AudioSamples.h"
#include "encode/EncodeFlacTask.h"
#include "encode/EncodeSHNTask.h"
#include "encode/EncodeSHNToFlacTask.h"
#include "engine/ZOLTTaskQueue.h"
#include "platform/desktop/ToolsDirectory.h"
#include "platform/errors/Exceptions.h"
#include "support/FileSizeLimit.h"
#include "support/TaskRun.h"
#include "support/TrashIn.h"
#include "tags/TagFiles.h"
#include "tags/TagLibTagsHelper.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class EventDriven : public TaskRun
{
protected:
    std::shared_ptr<EncodeFlacTask> flac(const QString& source)
    {
        return EncodeFlacTask::initAsyncTaskWithFileNameQueueLaunchPathArguments(
            source, &queue_, toolPath(u"flac"_s), {u"-5"_s, source, u"-o"_s, path(u"a.flac"_s)});
    }
    QStringList shntoolArguments(const QString& source) const
    {
        return {u"conv"_s, u"-P"_s, u"pct"_s, u"-O"_s, u"never"_s, u"-d"_s, folder(), u"-o"_s, u"cust"_s, source};
    }
    std::shared_ptr<EncodeSHNToFlacTask> toFlac(const QString& source)
    {
        return EncodeSHNToFlacTask::initAsyncTaskWithQueueLaunchPathArgumentsType(
            &queue_, toolPath(u"shntool"_s), shntoolArguments(source), path::extension(source).toUpper());
    }
    /// A Monkey's Audio file by its header and tags alone.
    QString ape(const QString& name, const TagsObject& tags)
    {
        QFile::remove(path(name));
        QFile::copy(samples_.ape(), path(name));
        TagLibTagsHelper().writeTagsForAPEFileTagObjectWriteEmptyTags(path(name), tags, false);
        return path(name);
    }
    std::shared_ptr<EncodeSHNTask> toShorten(const QString& source)
    {
        const auto task = EncodeSHNTask::initAsyncTaskWithQueueLaunchPathArgumentsWithResults(
            &queue_, toolPath(u"shntool"_s), shntoolArguments(source), set_);
        set_->addTaskInSet(task);
        return task;
    }

    TagFiles samples_;
    std::shared_ptr<ZOLTTaskResults> set_ = std::make_shared<ZOLTTaskResults>();
    const LogCapture log_;
};

/// A task after the set that remembers that it was started.
class Following : public ZOLTTask
{
public:
    static std::shared_ptr<Following> make(ZOLTTaskQueue* queue)
    {
        std::shared_ptr<Following> task(new Following);
        task->setUpWithQueue(queue);
        return task;
    }
    void startTask() override
    {
        started = true;
        ZOLTTask::startTask();
    }
    void finish()
    {
        setResults(nullptr);
        stopTask(nullptr);
        reportCompleted();
    }
    bool started = false;
};

} // namespace

TEST_F(EventDriven, FlacRowFollowsThePiecesThatThisFlacPrints)
{
    tools_.install(u"flac"_s, {u"out"_s, u"a.wav: 4% complete, ratio=0.488"_s, u"wait-file"_s, path(u"go"_s), u"out"_s,
                               u"\b\b13% complete, ratio=0.483"_s, u"wait-file"_s, path(u"on"_s)});
    const auto task = flac(file(u"a.wav"_s));
    EXPECT_EQ(task->textField()->stringValue(), u"a.wav"_s);
    queue_.addTask(task);
    ASSERT_TRUE(runUntil([&] { return task->topTextField()->stringValue() == u"Encoding to Flac: 4% ratio=0.488"_s; }));
    touch(path(u"go"_s));
    ASSERT_TRUE(
        runUntil([&] { return task->topTextField()->stringValue() == u"Encoding to Flac: 13% ratio=0.483"_s; }));
    EXPECT_EQ(task->progressIndicator()->doubleValue(), 13);
    touch(path(u"on"_s));
    settle();
    EXPECT_EQ(log_.count(u"Exception"_s), 0);
    EXPECT_TRUE(queue_.outputWindows().empty());
}

TEST_F(EventDriven, FlacFailureKeepsSourceAndText)
{
    tools_.install(u"flac"_s, {u"out"_s, u"why\n"_s, u"exit"_s, u"1"_s});
    const auto task = flac(file(u"a.wav"_s));
    task->setDeleteOriginal(true);
    run(task);
    EXPECT_TRUE(exists(u"a.wav"_s));
    EXPECT_EQ(onlyReport(), u"why\n"_s);
}

TEST_F(EventDriven, FlacNeverPutsItsSourceIntoTheTrash)
{
    const TrashIn trash(elsewhere_.path());
    tools_.install(u"flac"_s);
    const auto task = flac(file(u"a.wav"_s));
    task->setDeleteOriginal(true);
    run(task);
    EXPECT_FALSE(exists(u"a.wav"_s));
    EXPECT_FALSE(trash.holds(u"a.wav"_s));
}

TEST_F(EventDriven, ShortenPutsItsSourceWhereTheSettingSays)
{
    const TrashIn trash(elsewhere_.path());
    tools_.install(u"shntool"_s);
    const auto task = toShorten(file(u"a.wav"_s));
    task->setDeleteOriginal(true);
    run(task);
    EXPECT_TRUE(trash.holds(u"a.wav"_s));
}

TEST_F(EventDriven, FlacCancelledKeepsItsSource)
{
    tools_.install(u"flac"_s, {u"wait-file"_s, path(u"go"_s)});
    const auto task = flac(file(u"a.wav"_s));
    task->setDeleteOriginal(true);
    cancelAt(task, u"Waiting..."_s);
    EXPECT_TRUE(exists(u"a.wav"_s));
}

TEST_F(EventDriven, FlacWritesTagsForAiffAloneAlsoAfterAFailure)
{
    TagsObject title;
    title.setTitleText(u"Späti"_s);
    for (const auto& [name, writes] : {std::pair{u"a.wav"_s, false}, std::pair{u"a.AIF"_s, true},
                                       std::pair{u"a.aiff"_s, true}, std::pair{u"a.ape"_s, false}}) {
        writeFile(path(name), aiffFile(makeSamples(44100, 2, 16, 100)));
        TagLibTagsHelper().writeTagsForAIFFFileTagObject(path(name), title);
        for (const QString& status : {u"0"_s, u"1"_s}) {
            FakeTools tools;
            tools.install(u"metaflac"_s);
            tools.install(u"flac"_s, {u"exit"_s, status});
            const auto task = flac(path(name));
            run(task);
            queue_.removeAllErrors(nullptr);
            EXPECT_EQ(task->topTextField()->stringValue(), status == u"0"_s ? u"Complete"_s : u"Error"_s);
            const auto calls = tools.calls(u"metaflac"_s);
            EXPECT_EQ(!calls.isEmpty(), writes) << name.toStdString();
            EXPECT_EQ(calls.value(0).contains(path(u"a.flac"_s)), writes);
        }
    }
}

TEST_F(EventDriven, FlacWritesTagsOfAnAiffAheadOfItsDeletionAndBehindACancel)
{
    TagsObject title;
    title.setTitleText(u"Späti"_s);
    const auto taggedAiff = [&] {
        writeFile(path(u"a.aiff"_s), aiffFile(makeSamples(44100, 2, 16, 100)));
        TagLibTagsHelper().writeTagsForAIFFFileTagObject(path(u"a.aiff"_s), title);
        return flac(path(u"a.aiff"_s));
    };
    tools_.install(u"metaflac"_s, {u"touch"_s, path(u"tagged"_s)});
    tools_.install(u"flac"_s);
    auto task = taggedAiff();
    task->setDeleteOriginal(true);
    run(task);
    EXPECT_TRUE(exists(u"tagged"_s)) << "its tags were read while it was there";
    EXPECT_FALSE(exists(u"a.aiff"_s));
    QFile::remove(path(u"tagged"_s));
    tools_.install(u"flac"_s, {u"wait-file"_s, path(u"go"_s)});
    task = taggedAiff();
    task->setDeleteOriginal(true);
    cancelAt(task, u"Waiting..."_s);
    EXPECT_TRUE(exists(u"tagged"_s));
    EXPECT_TRUE(exists(u"a.aiff"_s));
}

TEST_F(EventDriven, ShntoolToFlacCopiesTagsAheadOfTheDeletion)
{
    TagsObject title;
    title.setTitleText(u"Späti"_s);
    tools_.install(u"shntool"_s, {u"copy"_s, samples_.flac(), path(u"a.flac"_s)});
    const auto task = toFlac(ape(u"a.ape"_s, title));
    EXPECT_EQ(task->title(), u"a.ape"_s);
    EXPECT_EQ(task->textField()->stringValue(), u"a.ape"_s);
    task->setDeleteOriginal(true);
    run(task);
    EXPECT_FALSE(exists(u"a.ape"_s));
    EXPECT_EQ(TagLibTagsHelper().tagsForFlacFile(path(u"a.flac"_s))->titleText(), u"Späti"_s);
}

TEST_F(EventDriven, ShortenVectorTooShortIsARangeFault)
{
    const auto make = [&] {
        return EncodeSHNToFlacTask::initAsyncTaskWithQueueLaunchPathArgumentsType(&queue_, u"x"_s, {u"conv"_s},
                                                                                  u"SHN"_s);
    };
    EXPECT_THROW(make()->setResults(nullptr), RangeException);
}

TEST_F(EventDriven, ShntoolToFlacShowsItsTypeAndTheToolsOwnDigits)
{
    tools_.install(u"shntool"_s, {u"out"_s, u"\b  42% "_s, u"wait-file"_s, path(u"go"_s)});
    const auto task = toFlac(file(u"a.shn"_s));
    queue_.addTask(task);
    ASSERT_TRUE(runUntil([&] { return task->topTextField()->stringValue() == u"Encoding SHN to Flac:   42%"_s; }));
    touch(path(u"go"_s));
    settle();
}

TEST_F(EventDriven, ShntoolToFlacSkipsTheTrashAndKeepsAFailure)
{
    const TrashIn trash(elsewhere_.path());
    tools_.install(u"shntool"_s);
    auto task = toFlac(file(u"a.shn"_s));
    task->setDeleteOriginal(true);
    run(task);
    EXPECT_FALSE(exists(u"a.shn"_s));
    EXPECT_FALSE(trash.holds(u"a.shn"_s));
    tools_.install(u"shntool"_s, {u"out"_s, u"ERROR"_s, u"exit"_s, u"1"_s});
    task = toFlac(file(u"a.shn"_s));
    task->setDeleteOriginal(true);
    run(task);
    EXPECT_TRUE(exists(u"a.shn"_s));
    EXPECT_EQ(onlyReport(), u"ERRORERROR\n"_s);
}

TEST_F(EventDriven, ShntoolToFlacCopiesTheTagsOfMonkeysAudioAloneAlsoAfterAFailure)
{
    TagsObject title;
    title.setTitleText(u"Späti"_s);
    for (const auto& [name, copies] :
         {std::pair{u"a.ape"_s, true}, std::pair{u"a.APE"_s, true}, std::pair{u"a.shn"_s, false}}) {
        ape(name, title);
        for (const QString& status : {u"0"_s, u"1"_s}) {
            tools_.install(u"shntool"_s, {u"copy"_s, samples_.flac(), path(u"a.flac"_s), u"exit"_s, status});
            const auto task = run(toFlac(path(name)));
            EXPECT_EQ(task->error(), status == u"1"_s);
            EXPECT_EQ(textOrEmpty(TagLibTagsHelper().tagsForFlacFile(path(u"a.flac"_s))->titleText()),
                      copies ? u"Späti"_s : QString())
                << name.toStdString();
        }
    }
}

TEST_F(EventDriven, TagsThatFindNoRoomInFlacAreToldThoughTheRowIsComplete)
{
    TagsObject tags;
    tags.setCommentText(QString(200000, u'x'));
    ape(u"a.ape"_s, tags);
    tools_.install(u"shntool"_s, {u"copy"_s, samples_.flac(), path(u"a.flac"_s)});
    const FileSizeLimit limit(100000);
    const auto task = run(toFlac(path(u"a.ape"_s)));
    EXPECT_EQ(task->topTextField()->stringValue(), u"Complete"_s);
    EXPECT_TRUE(onlyReport().startsWith(u"The tags were not saved: "_s));
}

TEST_F(EventDriven, ErrorInTheTextAloneFailsNothing)
{
    tools_.install(u"shntool"_s, {u"out"_s, u"ERROR"_s});
    EXPECT_FALSE(run(toFlac(file(u"a.shn"_s)))->error());
}

TEST_F(EventDriven, ShortenTextsMeetInTheFirstSlotAndAFailureShowsThem)
{
    tools_.install(u"shntool"_s, {u"out"_s, u"x"_s, u"exit"_s, u"1"_s});
    const auto first = toShorten(file(u"a.wav"_s)), second = toShorten(file(u"b.wav"_s));
    queue_.addTasks({first, second});
    settle();
    EXPECT_EQ(onlyReport(), u"xx\n\n"_s);
}

TEST_F(EventDriven, ShortenSetIsFollowedOnceAllHaveEnded)
{
    tools_.install(u"shntool"_s);
    const auto after = Following::make(&queue_);
    set_->setTaskAfterSetDone(after);
    const auto first = toShorten(file(u"a.wav"_s)), second = toShorten(file(u"b.wav"_s));
    first->setDeleteOriginal(true);
    queue_.addTasks({first, second});
    ASSERT_TRUE(runUntil([&] { return after->started; }));
    EXPECT_TRUE(first->isDone() && second->isDone());
    EXPECT_FALSE(exists(u"a.wav"_s));
    EXPECT_TRUE(exists(u"b.wav"_s));
    after->finish();
    settle();
    EXPECT_EQ(first->results(), nullptr);
    EXPECT_TRUE(queue_.outputWindows().empty());
}

TEST_F(EventDriven, CancelledShortenTaskStillEndsItsSet)
{
    tools_.install(u"shntool"_s, {u"wait-file"_s, path(u"go"_s)});
    const auto after = Following::make(&queue_);
    set_->setTaskAfterSetDone(after);
    const auto task = toShorten(file(u"a.wav"_s));
    task->setDeleteOriginal(true);
    queue_.addTask(task);
    QMetaObject::invokeMethod(
        QCoreApplication::instance(), [&] { touch(path(u"go"_s)); }, Qt::QueuedConnection);
    task->cancelTask(nullptr);
    ASSERT_TRUE(runUntil([&] { return after->started; }));
    EXPECT_TRUE(exists(u"a.wav"_s));
    after->finish();
    settle();
}
