#include "decode/DecodeAPETask.h"

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

QStringList macArguments(const QString& source, const QString& output, bool)
{
    return {source, output, u"-d"_s};
}

} // namespace

DecodeAPETask::DecodeAPETask()
    : ToolDecoder({.tool = u"mac"_s,
                   .arguments = macArguments,
                   .grammar = ConsoleGrammar::apeDecode,
                   .status = u"Decoding from Monkey's Audio"_s})
{
}

std::shared_ptr<DecodeAPETask> DecodeAPETask::initDecodeTaskWithQueueFileNameOutputPathFormat(ZOLTTaskQueue* queue,
                                                                                              const QString& fileName,
                                                                                              const QString& outputPath,
                                                                                              const QString& format)
{
    std::shared_ptr<DecodeAPETask> task(new DecodeAPETask);
    task->setUpDecoder(queue, fileName, outputPath, format);
    return task;
}

} // namespace zolt
