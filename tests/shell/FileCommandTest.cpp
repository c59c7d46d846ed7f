#include "shell/FileCommand.h"

#include "engine/ZOLTTask.h"
#include "shell/BaseTab.h"
#include "support/TabFixture.h"

using namespace zolt;
using namespace zolt::test;
using namespace Qt::StringLiterals;

namespace {

class PlainTab : public BaseTab
{
};

/// Writes down whether it was told to delete before it was started.
class DeletingTask : public ZOLTTask
{
public:
    static std::shared_ptr<DeletingTask> make(ZOLTTaskQueue* queue)
    {
        std::shared_ptr<DeletingTask> task(new DeletingTask);
        task->setUpWithQueue(queue);
        return task;
    }
    void setDeleteOriginal(bool deleteOriginal) override { deletes_ = deleteOriginal; }
    void startTask() override
    {
        deletedAtStart = deletes_;
        started = true;
        ZOLTTask::startTask();
    }

    void end()
    {
        stopTask(nullptr);
        reportCompleted();
    }

    bool started = false;
    bool deletedAtStart = false;

private:
    bool deletes_ = false;
};

class FileCommandTest : public TabFixture<PlainTab>
{
protected:
    FileCommandTest() : TabFixture(Constants::UTIL) {}
};

} // namespace

TEST_F(FileCommandTest, AnEmptyListAsksNothing)
{
    EXPECT_FALSE(FileCommand::start(tab, {.besideSources = false, .deletes = true}));
    EXPECT_TRUE(panels_.alerts().empty());
}

TEST_F(FileCommandTest, DeletionIsConfirmedBeforeTheFolderIsAskedFor)
{
    tab.addFiles({u"/a/1"_s});
    panels_.answerAlert(alertReply::alternateButton);
    EXPECT_FALSE(FileCommand::start(tab, {.besideSources = false, .deletes = true}));
    EXPECT_TRUE(panels_.openRequests().empty());
    panels_.answerAlert(alertReply::defaultButton);
    panels_.answerOpenPanel(std::nullopt);
    EXPECT_FALSE(FileCommand::start(tab, {.besideSources = false, .deletes = true}));
    EXPECT_EQ(tab.fileNames().count(), 1);
}

TEST_F(FileCommandTest, OneFolderServesAllOrEachItsOwn)
{
    tab.addFiles({u"/a/1"_s, u"/b/2"_s});
    const auto beside = FileCommand::start(tab, {.besideSources = true});
    EXPECT_EQ(beside->folderFor(u"/a/1"_s), u"/a"_s);
    EXPECT_EQ(beside->files(), tab.fileNames().copy());
    panels_.answerOpenPanel(QStringList{u"/out"_s});
    const auto chosen = FileCommand::start(tab, {.besideSources = false});
    EXPECT_EQ(chosen->folderFor(u"/a/1"_s), u"/out"_s);
}

TEST_F(FileCommandTest, ATaskIsToldToDeleteBeforeItCanStart)
{
    tab.addFiles({u"/a/1"_s});
    panels_.answerAlert(alertReply::defaultButton);
    const auto task = DeletingTask::make(&queue());
    FileCommand::start(tab, {.besideSources = true, .deletes = true})->queue(task);
    EXPECT_TRUE(task->started);
    EXPECT_TRUE(task->deletedAtStart);
    task->end();
}

TEST_F(FileCommandTest, WithoutDeletionTheTaskIsNotToldAnything)
{
    tab.addFiles({u"/a/1"_s});
    const auto task = DeletingTask::make(&queue());
    FileCommand::start(tab, {.besideSources = true})->queue(task);
    EXPECT_FALSE(task->deletedAtStart);
    FileCommand::start(tab, {.besideSources = true})->queue(nullptr);
    EXPECT_EQ(queue().taskCount(), 1);
    task->end();
}
