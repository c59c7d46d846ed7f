#include "checksum/VerifyToolTask.h"

namespace zolt {

void VerifyToolTask::setUpVerification(const std::shared_ptr<ZOLTTaskResults>& results, ZOLTTaskQueue* queue,
                                       const QString& launchPath, const QStringList& arguments, qsizetype source)
{
    setUpAsyncTask(queue, launchPath, arguments);
    setResults(results);
    setSource(pieceAt(arguments, source));
    showTitle(path::lastComponent(this->source()));
}

void VerifyToolTask::processTaskOutput(const OptionalText& output)
{
    grammar_.follow(output, *this);
}

} // namespace zolt
