#include "checksum/VerifyListTask.h"

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

void VerifyListTask::report(const QString& text) const
{
    if (const auto collector = results()) collector->appendResultsForTask(text, this);
}

void VerifyListTask::noteMissing(const QString& line) const
{
    if (const auto collector = results()) collector->noteMissing(line);
}

void VerifyListTask::showProgress(qsizetype entry, qsizetype entries) const
{
    progressIndicator()->setDoubleValue(100.0 * double(entry) / double(entries));
}

void VerifyListTask::doStartTask()
{
    topTextField()->setStringValue(words_.status);
    report(words_.heading + QStringLiteral(": ") + path::lastComponent(fileName_) + u'\n');
    beginRow();
    verifyList();
    stopTask(nullptr);
}

} // namespace zolt
