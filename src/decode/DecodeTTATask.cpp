#include "decode/DecodeTTATask.h"

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

QStringList ttaencArguments(const QString& source, const QString& output, bool)
{
    return {source, u"-o"_s, output};
}

} // namespace

DecodeTTATask::DecodeTTATask()
    : ToolDecoder({.tool = u"ttaenc"_s,
                   .arguments = ttaencArguments,
                   .grammar = ConsoleGrammar::ttaDecode,
                   .status = u"Decoding from TTA"_s,
                   .end = {.waits = ThreadEnd::Waits::No, .readsStatus = false},
                   .afterwards = ToolCall::Afterwards::Terminate})
{
}

std::shared_ptr<DecodeTTATask> DecodeTTATask::initDecodeTaskWithQueueFileNameOutputPathFormat(ZOLTTaskQueue* queue,
                                                                                              const QString& fileName,
                                                                                              const QString& outputPath,
                                                                                              const QString& format)
{
    std::shared_ptr<DecodeTTATask> task(new DecodeTTATask);
    task->setUpDecoder(queue, fileName, outputPath, format);
    return task;
}

void DecodeTTATask::cleanup()
{
    if (!error()) setResults(nullptr);
    deleteSource(fileName());
}

} // namespace zolt
