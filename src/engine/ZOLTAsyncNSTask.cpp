#include "engine/ZOLTAsyncNSTask.h"

#include "engine/Log.h"
#include "platform/errors/Exceptions.h"
#include "platform/files/FileNames.h"

namespace zolt {

std::shared_ptr<ZOLTAsyncNSTask>
ZOLTAsyncNSTask::initAsyncTaskWithQueueLaunchPathArguments(ZOLTTaskQueue* queue, const QString& launchPath,
                                                           const QStringList& arguments)
{
    std::shared_ptr<ZOLTAsyncNSTask> task(new ZOLTAsyncNSTask);
    task->setUpAsyncTask(queue, launchPath, arguments);
    return task;
}

void ZOLTAsyncNSTask::setUpAsyncTask(ZOLTTaskQueue* queue, const QString& launchPath, const QStringList& arguments)
{
    setUpWithQueue(queue);
    launchPath_ = launchPath;
    arguments_ = arguments;
    environment_ = childEnvironment();
}

void ZOLTAsyncNSTask::appendToPATH(const QString& directory)
{
    Environment environment = get(environment_);
    appendDirectoryToPath(environment, directory);
    put(environment_, environment);
}

void ZOLTAsyncNSTask::processTaskOutput(const OptionalText& output)
{
    if (const auto collector = results()) collector->appendResultsForTask(output, this);
}

void ZOLTAsyncNSTask::startTask()
{
    const std::lock_guard guard(start_);
    if (endedBefore_) return; // cancelled since the queue chose it: no tool runs behind a row that has ended
    markRunning();
    showStart();
    launch();
}

void ZOLTAsyncNSTask::launch()
{
    stageBegins();
    dialect_ = dialectFor(launchPath_, arguments_);
    const auto process = prepared();
    const auto handle = process->standardOutput()->fileHandleForReading();
    observe(handle.get());
    handle->readInBackgroundAndNotify(); // before the launch, so that nothing a quick tool writes is missed
    process->launch();
}

std::shared_ptr<ChildProcess> ZOLTAsyncNSTask::launchedTool()
{
    const std::lock_guard guard(start_);
    auto process = get(task_);
    if (!process) endedBefore_ = true;
    return process;
}

std::shared_ptr<ChildProcess> ZOLTAsyncNSTask::prepared()
{
    const std::lock_guard guard(mutex_);
    task_ = ChildProcess::withPipe(launchPath_, arguments_, environment_, currentDirectoryPath_);
    outputPipe_ = task_->standardOutput();
    taskOutput_ = outputPipe_->fileHandleForReading();
    return task_;
}

void ZOLTAsyncNSTask::observe(const FileHandle* handle)
{
    NotificationCenter::standard().addObserver(this, FileHandleReadCompletionNotification, handle,
                                               [weak = std::weak_ptr(std::static_pointer_cast<ZOLTAsyncNSTask>(
                                                    shared_from_this()))](const Notification& notification) {
                                                   if (const auto task = weak.lock())
                                                       task->taskDataAvailable(notification);
                                               });
}

void ZOLTAsyncNSTask::taskDataAvailable(const Notification& notification)
{
    const Hold hold(shared_from_this());
    const auto* bytes = std::any_cast<QByteArray>(&notification.object);
    if (!bytes || bytes->isEmpty()) {
        guarded("end of output", [this] { hand(dialect_->rest()); });
        return stopTask(nullptr);
    }
    // Asked for on every way out: a fault in a parser must not leave the row running for ever.
    struct NextRead
    {
        std::shared_ptr<FileHandle> handle;
        ~NextRead()
        {
            if (handle) handle->readInBackgroundAndNotify();
        }
    } const nextRead{get(taskOutput_)};
    hand(dialect_->complete(*bytes));
}

void ZOLTAsyncNSTask::hand(const QByteArray& bytes)
{
    if (!bytes.isEmpty()) processTaskOutput(decodeUtf8(bytes));
}

void ZOLTAsyncNSTask::stopTask(Sender)
{
    if (const auto process = launchedTool()) {
        // The wait comes first: a cancel does not shorten the tool's run.
        if (process->waitUntilExit()) process->terminate();
        if (stillRunning(process)) return; // a later notification ends the task
        NotificationCenter::standard().removeObserver(this, FileHandleReadCompletionNotification,
                                                      process->standardOutput()->fileHandleForReading().get());
        if (!cancelled()) lookAtEnd(*process);
    }
    markEnded();
    runHook("cleanup", &ZOLTAsyncNSTask::cleanup);
    ZOLTTask::stopTask(nullptr);
    runHook("finalCleanup", &ZOLTAsyncNSTask::finalCleanup);
    releaseTool();
    reportCompleted();
}

void ZOLTAsyncNSTask::releaseTool()
{
    // The row may stay for hours: it must not keep descriptors open.
    put(task_, std::shared_ptr<ChildProcess>());
    put(outputPipe_, std::shared_ptr<Pipe>());
    put(taskOutput_, std::shared_ptr<FileHandle>());
}

bool ZOLTAsyncNSTask::stillRunning(const std::shared_ptr<ChildProcess>& process)
{
    try {
        if (!process->isRunning()) return false;
        process->standardOutput()->fileHandleForReading()->readInBackgroundAndNotify();
        return true;
    } catch (const PlatformException& fault) {
        qCWarning(engineLog, "exception in task isRunning even though we're in stopTask %s", fault.what());
        return false;
    }
}

void ZOLTAsyncNSTask::lookAtEnd(ChildProcess& tool)
{
    readStatus(tool);
    if (tool.terminationStatus() == 0)
        tool.standardOutput()->fileHandleForReading()->readDataToEndOfFile(); // thrown away
}

void ZOLTAsyncNSTask::runHook(const char* name, void (ZOLTAsyncNSTask::*hook)())
{
    // A tag that cannot be written never costs a row its end.
    guarded(name, [this, hook] { (this->*hook)(); });
}

void ZOLTAsyncNSTask::finishAfterFault()
{
    stopTask(nullptr);
}

QString ZOLTAsyncNSTask::source() const
{
    if (!source_.isEmpty() || title().isEmpty()) return source_;
    const QString ending = u'/' + readableName(title());
    const auto found = std::find_if(arguments_.begin(), arguments_.end(), [&ending](const QString& argument) {
        return readableName(argument).endsWith(ending);
    });
    return found == arguments_.end() ? QString() : *found;
}

QString ZOLTAsyncNSTask::description() const
{
    QString text;
    const auto add = [&text](const QString& value) { text += u'"' + value + QStringLiteral("\"\n "); };
    add(launchPath_);
    for (const QString& argument : arguments_)
        add(argument);
    return text;
}

} // namespace zolt
