#include "engine/ZOLTTask.h"

#include "engine/Log.h"
#include "engine/ZOLTTaskQueue.h"
#include "platform/errors/Exceptions.h"
#include "platform/files/FileNames.h"
#include "platform/process/ChildProcess.h"
#include "platform/threads/MainQueue.h"

namespace zolt {

namespace {

const TextFieldStyle& nameLineStyle()
{
    static const TextFieldStyle style{
        .border = false, .editable = false, .bold = true, .fontSize = 12.0, .controlColourBackground = true};
    return style;
}

const TextFieldStyle& statusLineStyle()
{
    static const TextFieldStyle style{
        .border = false, .editable = false, .fontSize = 9.0, .controlColourBackground = true};
    return style;
}

const ButtonStyle& stopButtonStyle()
{
    static const ButtonStyle style{.controlSize = 1,
                                   .bezelStyle = 6,
                                   .border = false,
                                   .imagePosition = 1,
                                   .imageName = QStringLiteral("NSImageNameStopProgressFreestandingTemplate"),
                                   .imageSize = 15.0};
    return style;
}

} // namespace

ZOLTTask::ZOLTTask()
    : progressIndicator_(std::make_shared<ProgressIndicator>()),
      cancelButton_(std::make_shared<Button>(stopButtonStyle())),
      textField_(std::make_shared<TextField>(nameLineStyle())),
      topTextField_(std::make_shared<TextField>(statusLineStyle())), results_(std::make_shared<ZOLTTaskResults>())
{
    progressIndicator_->startAnimation();
    progressIndicator_->setHidden(true);
    topTextField_->setStringValue(QStringLiteral("Waiting..."));
    cancelButton_->setHidden(true);
    cancelButton_->setToolTip(QStringLiteral("Cancel"));
}

ZOLTTask::~ZOLTTask() = default;

std::shared_ptr<ZOLTTask> ZOLTTask::initWithQueue(ZOLTTaskQueue* queue)
{
    std::shared_ptr<ZOLTTask> task(new ZOLTTask);
    task->setUpWithQueue(queue);
    return task;
}

void ZOLTTask::setUpWithQueue(ZOLTTaskQueue* queue)
{
    results()->addTaskInSet(shared_from_this());
    cancelButton_->setAction([weak = weak_from_this()] {
        if (const auto task = weak.lock()) task->cancelTask(task->cancelButton().get());
    });
    queue_ = queue;
}

void ZOLTTask::showTitle(const QString& title)
{
    setTitle(readableName(title));
    textField()->setStringValue(readableName(title));
}

void ZOLTTask::appendResults(const OptionalText& text) const
{
    if (const auto collector = results()) collector->appendResults(text);
}

void ZOLTTask::tellInReport(const OptionalText& line)
{
    if (!line) return;
    if (!results()) {
        setResults(std::make_shared<ZOLTTaskResults>());
        results()->addTaskInSet(shared_from_this());
    }
    mustBeSeen_ = true;
    appendResults(*line + u'\n');
}

void ZOLTTask::dropResults()
{
    if (!error() && !mustBeSeen_) setResults(nullptr);
}

void ZOLTTask::readStatus(ChildProcess& tool)
{
    if (tool.terminationStatus() == 0) return;
    setError(true);
    const auto collector = results();
    const bool killed = tool.terminationReason() == ChildProcess::TerminationReason::UncaughtSignal;
    if (collector && killed) collector->noteSignal(tool.terminationStatus());
}

void ZOLTTask::stageBegins()
{
    progressIndicator()->beginReadings();
    ++stage_;
}

void ZOLTTask::startTask()
{
    if (isDone()) return;
    textField()->setStringValue(title());
    markRunning();
}

void ZOLTTask::markRunning()
{
    if (!markActive()) return; // cancelled since it was chosen
    cancelButton()->setHidden(false);
    progressIndicator()->setHidden(false);
}

bool ZOLTTask::markActive()
{
    const std::lock_guard guard(mutex_);
    if (!done_) active_ = true;
    return active_;
}

void ZOLTTask::markEnded()
{
    const std::lock_guard guard(mutex_);
    done_ = true;
    active_ = false;
}

void ZOLTTask::cancelTask(Sender)
{
    const Hold hold(shared_from_this());
    setCancelled(true);
    stopTask(nullptr);
}

void ZOLTTask::stopTask(Sender)
{
    markEnded();
    markSetDone();
    showOutcome();
}

void ZOLTTask::markSetDone()
{
    const auto collector = results();
    if (!collector || !collector->allTasksDone()) return;
    collector->setTaskSetDone(true);
    if (!queue_) return;
    if (auto next = collector->claimTaskAfterSetDone()) {
        next->setOrigin(origin());
        postToMain([queue = queue_, next = std::move(next)] { queue->addTask(next); });
    }
}

void ZOLTTask::showOutcome()
{
    const auto name = textField();
    if (cancelled()) {
        name->setStringValue(QStringLiteral("Canceled"));
        name->setTextColour(Colour::failure());
    } else if (error()) {
        name->setTextColour(Colour::failure());
        topTextField()->setStringValue(QStringLiteral("Error"));
        progressIndicator()->stopAnimation();
        qCWarning(engineLog, "%s Error", qUtf8Printable(description()));
    } else {
        name->setTextColour(Colour::success());
        topTextField()->setStringValue(QStringLiteral("Complete"));
        progressIndicator()->setHidden(true);
    }
    cancelButton()->setHidden(true);
}

void ZOLTTask::endAfterFault(const QString& reason)
{
    if (reported_) return;
    const Hold hold(shared_from_this());
    if (!cancelled()) setError(true); // a cancel is no failure, whatever it leads to
    if (const auto collector = results()) collector->appendResultsForTask(reason, this);
    finishAfterFault();
}

void ZOLTTask::finishAfterFault()
{
    stopTask(nullptr);
    reportCompleted();
}

void ZOLTTask::reportCompleted()
{
    reported_ = true;
    if (queue_) queue_->taskCompleted(shared_from_this());
}

void ZOLTTask::hide()
{
    progressIndicator()->removeFromSuperview();
    textField()->removeFromSuperview();
    cancelButton()->removeFromSuperview();
    topTextField()->removeFromSuperview();
}

void ZOLTTask::setDeleteOriginal(bool)
{
    throw InvalidArgumentException(QStringLiteral("setDeleteOriginal: is not answered by ") + description());
}

QString ZOLTTask::description() const
{
    return QStringLiteral("<ZOLTTask: %1>").arg(title());
}

bool ZOLTTask::hasLeftQueue() const
{
    return get(leftQueue_);
}

void ZOLTTask::leftQueue()
{
    put(leftQueue_, true);
    letGoIfLeft();
}

void ZOLTTask::leftPanel()
{
    put(leftPanel_, true);
    letGoIfLeft();
}

void ZOLTTask::letGoIfLeft()
{
    std::shared_ptr<ZOLTTaskResults> last; // freed outside the mutex: it may own the task itself
    const std::lock_guard guard(mutex_);
    if (leftQueue_ && leftPanel_ && holds_ == 0) last.swap(results_);
}

ZOLTTask::Hold::Hold(std::shared_ptr<ZOLTTask> task) : task_(std::move(task))
{
    const std::lock_guard guard(task_->mutex_);
    ++task_->holds_;
}

ZOLTTask::Hold::~Hold()
{
    {
        const std::lock_guard guard(task_->mutex_);
        --task_->holds_;
    }
    task_->letGoIfLeft();
}

} // namespace zolt
