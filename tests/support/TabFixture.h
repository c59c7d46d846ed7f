// What the tests of every tab share: the tab in a controller, panels, a desktop, a folder, settings of its own.
#pragma once

#include "engine/ZOLTTaskQueue.h"
#include "platform/desktop/UserDefaults.h"
#include "platform/threads/DetachedThreads.h"
#include "shell/Constants.h"
#include "shell/ZOLTController.h"
#include "support/EventLoop.h"
#include "support/LogCapture.h"
#include "support/QueueRun.h"
#include "support/RecordingDesktop.h"
#include "support/ScriptedPanels.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace zolt::test {

template <class Tab> class TabFixture : public testing::Test
{
protected:
    /// @param label  the tab's
    explicit TabFixture(const QString& label)
    {
        controller.addTab(tab, label);
        controller.awakeFromNib();
        controller.applicationDidFinishLaunching();
    }
    /// A task's thread may still be inside the queue when that has become empty.
    ~TabFixture() override
    {
        waitForDetachedThreads();
        runPosted();
        for (const auto& task : queue().taskArray())
            task->setResults(nullptr); // one that never ran holds its results, and they hold it
    }
    ZOLTTaskQueue& queue() { return *controller.taskQueue(); }
    QString folder() const { return folder_.path(); }
    QString pathOf(const QString& name) const { return folder_.filePath(name); }
    bool exists(const QString& name) const { return QFile::exists(pathOf(name)); }
    /// Makes a file below the test's folder, with its folders. @return its path
    QString file(const QString& name, const QByteArray& content = {}) const
    {
        const QString path = pathOf(name);
        QDir().mkpath(path::deletingLastComponent(path));
        QFile made(path);
        EXPECT_TRUE(made.open(QIODevice::WriteOnly));
        made.write(content);
        return path;
    }
    /// No task starts from here on.
    void holdQueue() { queue().maxThreadsChanged({QString(), nullptr, 0}); }
    /// Presses the tab's button, and nothing starts before all its tasks are seen: one on a thread may have left the
    /// queue by the time that a test looks. @return what the queue holds then
    std::vector<std::shared_ptr<ZOLTTask>> tasksOfPress()
    {
        queue().setHeld(true);
        tab.executeCommand(nullptr);
        const auto tasks = queue().taskArray();
        queue().setHeld(false);
        return tasks;
    }
    void runQueue() { ASSERT_TRUE(runToEnd(queue())); }
    /// The tasks in the queue, each as the class that the test expects; none in place of one of another class.
    template <class Task> std::vector<std::shared_ptr<Task>> queued()
    {
        std::vector<std::shared_ptr<Task>> tasks;
        for (const auto& task : queue().taskArray())
            tasks.push_back(std::dynamic_pointer_cast<Task>(task));
        return tasks;
    }

    /// Before the controller, whose queue reads its limit from them.
    struct Settings
    {
        explicit Settings(const QString& file)
        {
            UserDefaults::standard().reopen(file);
            ZOLTController::initialize();
        }
    };

    QTemporaryDir folder_;
    Settings settings_{folder_.filePath(QStringLiteral("settings.ini"))};
    ScriptedPanels panels_;
    RecordingDesktop desktop_;
    ZOLTController controller;
    Tab tab;
};

} // namespace zolt::test
