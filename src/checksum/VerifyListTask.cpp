#include "checksum/VerifyListTask.h"

#include "platform/files/FileNames.h"

namespace zolt {

// The report stays, no tool's status counts, and a cancel shows on the row alone: the thread goes on.
VerifyListTask::VerifyListTask(const Words& words)
    : ZOLTThreadTask({.waits = ThreadEnd::Waits::No,
                      .readsStatus = false,
                      .drops = ThreadEnd::Drops::Never,
                      .reports = ThreadEnd::Reports::ByThread}),
      words_(words)
{
}

void VerifyListTask::setUpVerification(ZOLTTaskQueue* queue, const QString& fileName,
                                       const std::shared_ptr<ZOLTTaskResults>& results)
{
    setUpThreadTask(queue);
    fileName_ = fileName;
    setResults(results);
    showTitle(path::lastComponent(fileName));
}

void VerifyListTask::report(const QString& text)
{
    toldAny_ = toldAny_ || !text.isEmpty();
    if (const auto collector = results()) collector->appendResultsForTask(text, this);
}

void VerifyListTask::noteMissing(const QString& line) const
{
    if (const auto collector = results()) collector->noteMissing(line);
}

void VerifyListTask::noteNothingToCheck(const QString& name) const
{
    const QString sentence =
        QStringLiteral("Nothing of %1 was checked: it is not there, is empty or is no UTF-8 text.");
    if (const auto collector = results()) collector->noteFault(sentence.arg(readableName(name)), this);
}

void VerifyListTask::showProgress(qsizetype entry, qsizetype entries) const
{
    progressIndicator()->setDoubleValue(100.0 * double(entry) / double(entries));
}

void VerifyListTask::doStartTask()
{
    topTextField()->setStringValue(words_.status);
    const QString name = path::lastComponent(fileName_);
    report(words_.heading + QStringLiteral(": ") + name + u'\n');
    beginRow();
    toldAny_ = false;
    verifyList();
    if (!toldAny_) noteNothingToCheck(name);
    stopTask(nullptr);
}

} // namespace zolt
