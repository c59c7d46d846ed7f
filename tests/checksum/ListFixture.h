// What the tests of checksum lists share: a folder, a queue, and one report.
#pragma once

#include "engine/OutputWindowController.h"
#include "engine/ZOLTTask.h"
#include "engine/ZOLTTaskQueue.h"
#include "platform/files/Files.h"
#include "platform/threads/DetachedThreads.h"
#include "support/EventLoop.h"
#include "support/QueueRun.h"
#include "support/RecordingDesktop.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include <sys/stat.h>

namespace zolt::test {

class ListTest : public testing::Test
{
protected:
    ListTest() { setLimit(2); }
    ~ListTest() override
    {
        waitForDetachedThreads();
        removeTree(folder_.path()); // pipes and sockets with it
    }

    void setLimit(int limit) { queue_.maxThreadsChanged({QString(), nullptr, limit}); }
    QString pathOf(const QString& name) const { return folder_.filePath(name); }
    /// @return the file's path
    QString write(const QString& name, const QByteArray& bytes) const
    {
        QFile file(pathOf(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }
    QString textOf(const QString& name) const
    {
        QFile file(pathOf(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
        return QString::fromUtf8(file.readAll());
    }
    /// Makes a list that nobody can read before `fillPipe` has written it.
    QString pipe(const QString& name) const
    {
        EXPECT_EQ(::mkfifo(QFile::encodeName(pathOf(name)).constData(), 0600), 0);
        return pathOf(name);
    }
    void fillPipe(const QString& name, const QByteArray& bytes) const { write(name, bytes); }
    /// Cancels a task whose list, a pipe, has yet to come; then lets the list come. @return what is reported
    QString reportOfCancelled(const std::shared_ptr<ZOLTTask>& task, const std::shared_ptr<ZOLTTaskResults>& results,
                              const QString& list, const QByteArray& entries)
    {
        results->addTaskInSet(task);
        queue_.addTask(task);
        EXPECT_TRUE(runUntil([&] { return results->results().contains(u"Verify "); }));
        task->cancelTask(nullptr);
        EXPECT_EQ(task->textField()->stringValue(), u"Canceled") << "at once";
        fillPipe(list, entries);
        runQueue();
        EXPECT_TRUE(task->cancelled());
        EXPECT_FALSE(task->error());
        return results->results();
    }
    /// Runs the tasks as one set. @return the text of the one report that opens
    QString reportOf(const std::vector<std::shared_ptr<ZOLTTask>>& tasks,
                     const std::shared_ptr<ZOLTTaskResults>& results)
    {
        for (const auto& task : tasks)
            results->addTaskInSet(task);
        queue_.addTasks(tasks);
        runQueue();
        EXPECT_EQ(queue_.outputWindows().size(), 1U);
        return queue_.outputWindows().empty() ? QString() : queue_.outputWindows().front()->textField()->string();
    }
    void runQueue() { EXPECT_TRUE(runToEnd(queue_)); }

    QTemporaryDir folder_;
    RecordingDesktop desktop_;
    ZOLTTaskQueue queue_;
};

} // namespace zolt::test
