// A task that drives one tool without blocking the main thread: its output arrives as notifications.
#pragma once

#include "engine/ZOLTTask.h"
#include "engine/console/ConsoleDialect.h"
#include "platform/process/ChildProcess.h"
#include "platform/process/Environment.h"
#include "platform/threads/NotificationCenter.h"

#include <QStringList>

namespace zolt {

/// Output is handled on the main thread piece by piece, as the pipe delivers it. appendToPATH and setDirectory come
/// before startTask to have effect.
class ZOLTAsyncNSTask : public ZOLTTask
{
public:
    /// @param launchPath  full path of the tool
    /// @param arguments   the argument vector, without the tool's name
    static std::shared_ptr<ZOLTAsyncNSTask> initAsyncTaskWithQueueLaunchPathArguments(ZOLTTaskQueue* queue,
                                                                                      const QString& launchPath,
                                                                                      const QStringList& arguments);

    /// PATH of the child becomes itself, ":" and the text.
    void appendToPATH(const QString& directory);
    /// Working directory of the child; none means this program's own.
    void setDirectory(const QString& directory) { put(currentDirectoryPath_, directory); }
    QString directory() const { return get(currentDirectoryPath_); }

    /// Hook between the flags and the row's outcome. May run twice after a cancel.
    virtual void cleanup() {}
    /// Hook between the row's outcome and the report to the queue.
    virtual void finalCleanup() {}
    /// Hook for each piece of output; absent where the bytes are not valid UTF-8. The default keeps it in the results.
    virtual void processTaskOutput(const OptionalText& output);

    /// One piece of output has arrived, or the end of it. Main thread.
    void taskDataAvailable(const Notification& notification);

    /// Launches the tool and returns at once; does nothing if the task has ended before. @throws PlatformException if
    /// the tool cannot be started
    void startTask() override;
    /// Waits for the tool's own end, reads its status unless cancelled, and ends the task with its report to the queue.
    void stopTask(Sender sender) override;
    /// Launch path and arguments, each in double quotes with a line end and a blank behind it.
    QString description() const override;

    /// What setSource said, else the first argument that is a full path and bears the row's name.
    QString source() const override;
    /// For a task whose row is named otherwise. Before it is queued. @param path  full
    void setSource(const QString& path) { source_ = path; }
    const QString& launchPath() const { return launchPath_; }
    const QStringList& arguments() const { return arguments_; }
    Environment environment() const { return get(environment_); }

protected:
    ZOLTAsyncNSTask() = default;
    void setUpAsyncTask(ZOLTTaskQueue* queue, const QString& launchPath, const QStringList& arguments);
    void finishAfterFault() override;
    /// Hook at the start, for what the row shows of it. Must not end the task.
    virtual void showStart() {}

private:
    void launch();
    std::shared_ptr<ChildProcess> launchedTool();
    std::shared_ptr<ChildProcess> prepared();
    void hand(const QByteArray& bytes);
    void observe(const FileHandle* handle);
    bool stillRunning(const std::shared_ptr<ChildProcess>& process);
    void releaseTool();
    void lookAtEnd(ChildProcess& tool);
    void runHook(const char* name, void (ZOLTAsyncNSTask::*hook)());

    std::mutex start_; // held from the decision to start to the launch: an end meets all of it or nothing
    bool endedBefore_ = false;
    std::unique_ptr<ConsoleDialect> dialect_; // main thread, once launched
    std::shared_ptr<ChildProcess> task_;      // none until the start, and none after the end
    Environment environment_;
    QString currentDirectoryPath_;
    QString source_;
    QString launchPath_;
    QStringList arguments_;
    std::shared_ptr<Pipe> outputPipe_;
    std::shared_ptr<FileHandle> taskOutput_;
};

} // namespace zolt
