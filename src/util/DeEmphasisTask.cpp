#include "util/DeEmphasisTask.h"

#include "encode/CoreAudioHelper.h"
#include "engine/ZOLTTaskResults.h"
#include "platform/errors/Exceptions.h"
#include "util/Log.h"

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

const QString progressStart = u"In:"_s;

} // namespace

std::shared_ptr<DeEmphasisTask>
DeEmphasisTask::initAsyncTaskWithQueueLaunchPathArgumentsWithResults(ZOLTTaskQueue* queue, const QString& launchPath,
                                                                     const QStringList& arguments,
                                                                     const std::shared_ptr<ZOLTTaskResults>& results)
{
    std::shared_ptr<DeEmphasisTask> task(new DeEmphasisTask);
    task->setUpAsyncTask(queue, launchPath, arguments);
    task->fileName_ = pieceAt(arguments, 1);
    task->showTitle(path::lastComponent(task->fileName_));
    task->setResults(results);
    return task;
}

void DeEmphasisTask::processTaskOutput(const OptionalText& output)
{
    if (!output) return;
    const QString text = trimmed(*output, CharacterSet::WhiteSpaceAndNewlines);
    if (!zoltStartsWith(text, progressStart))
        totalOutput_ += text;
    else if (text.contains(u'%'))
        showProgress(text);
    // Kept: the first test never holds, since it takes one character for five.
    if (zoltEndsWith(text, u"Done."_s) || text.contains(u"100%")) totalOutput_ += fileName_ + u"  - Done"_s;
}

void DeEmphasisTask::showProgress(const QString& text)
{
    try {
        const QString number = substringFrom(substringTo(text, text.indexOf(u'%')), progressStart.size());
        progressIndicator()->setDoubleValue(doubleValue(number));
        topTextField()->setStringValue(u"Applying de-emphasis: "_s + fixedSix(doubleValue(number)) + u'%');
    } catch (const PlatformException& fault) {
        qCWarning(utilLog).noquote() << "Error in deemph" << fault.reason();
    }
}

void DeEmphasisTask::finalCleanup()
{
    totalOutput_ += u"\n\n"_s;
    const auto collector = results();
    if (!collector) return;
    collector->appendResults(totalOutput_);
    if (!cancelled()) lookAtOutput(*collector);
}

/// On a full disk, and where it was killed, the tool leaves a part of the sound and reports success.
void DeEmphasisTask::lookAtOutput(ZOLTTaskResults& results) const
{
    const QString output = pieceAt(arguments(), 2), name = path::lastComponent(output);
    const auto source = CoreAudioHelper::getFormatInfo(fileName_), written = CoreAudioHelper::getFormatInfo(output);
    if (!source) return; // nothing to hold it against; the tool's text says why
    if (!written)
        results.noteFault(u"%1 was not written, or holds no sound"_s.arg(name), this);
    else if (written->totalSamples() < source->totalSamples())
        results.noteFault(
            u"%1 is shorter than its source: there may be no room on the disk, or the tool was ended"_s.arg(name),
            this);
}

} // namespace zolt
