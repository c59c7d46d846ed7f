// What the tests of single tasks share: a folder, fake or real tools, a queue that runs one task at a time.
#pragma once

#include "engine/OutputWindowController.h"
#include "engine/ZOLTTask.h"
#include "engine/ZOLTTaskQueue.h"
#include "platform/desktop/UserDefaults.h"
#include "platform/threads/DetachedThreads.h"
#include "shell/ZOLTController.h"
#include "support/EventLoop.h"
#include "support/FakeTool.h"
#include "support/FakeTools.h"
#include "support/LogCapture.h"
#include "support/QueueRun.h"
#include "support/RecordingDesktop.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>

namespace zolt::test {

class TaskRun : public testing::Test
{
protected:
    TaskRun() { limit(1); }

    void limit(int tasks) { queue_.maxThreadsChanged({QString(), nullptr, tasks}); }
    QString path(const QString& name) const { return folder_.filePath(name); }
    QString folder() const { return folder_.path(); }
    bool exists(const QString& name) const { return QFile::exists(path(name)); }
    QString file(const QString& name, const QByteArray& content = "content") const
    {
        QFile made(path(name));
        EXPECT_TRUE(made.open(QIODevice::WriteOnly));
        made.write(content);
        return path(name);
    }
    /// The names in the folder that are none of these.
    QStringList othersThan(const QStringList& names) const
    {
        QStringList others = QDir(folder()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
        for (const QString& name : names)
            others.removeAll(name);
        return others;
    }
    template <class Task> std::shared_ptr<Task> run(const std::shared_ptr<Task>& task)
    {
        queue_.addTask(task);
        settle();
        return task;
    }
    void settle() { EXPECT_TRUE(runToEnd(queue_)); }
    /// Cancels a task once it shows this status, while its tool waits for the file "go"; then lets the tool go on.
    void cancelAt(const std::shared_ptr<ZOLTTask>& task, const QString& status)
    {
        queue_.addTask(task);
        ASSERT_TRUE(runUntil([&] { return task->topTextField()->stringValue() == status; }));
        cancelAtWork(task);
    }
    /// Cancels a task whose tool waits for the file "go", and lets the tool go on while the cancel waits for it.
    void cancelAtWork(const std::shared_ptr<ZOLTTask>& task)
    {
        QMetaObject::invokeMethod(
            QCoreApplication::instance(), [&] { touch(path(QStringLiteral("go"))); }, Qt::QueuedConnection);
        task->cancelTask(nullptr);
        touch(path(QStringLiteral("go")));
        settle();
    }
    QString onlyReport() const
    {
        const auto windows = queue_.outputWindows();
        EXPECT_EQ(windows.size(), 1U);
        return windows.empty() ? QString() : windows[0]->textField()->string();
    }

    /// Before the queue, which reads its limit from them.
    struct Settings
    {
        explicit Settings(const QString& place)
        {
            UserDefaults::standard().reopen(place);
            ZOLTController::initialize();
        }
    };

    QTemporaryDir folder_;
    QTemporaryDir elsewhere_;
    Settings settings_{elsewhere_.filePath(QStringLiteral("settings.ini"))};
    FakeTools tools_;
    RecordingDesktop desktop_;
    ZOLTTaskQueue queue_;
};

} // namespace zolt::test
