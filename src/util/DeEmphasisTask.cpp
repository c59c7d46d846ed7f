#include "util/DeEmphasisTask.h"

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
    if (const auto collector = results()) collector->appendResults(totalOutput_);
}

} // namespace zolt
