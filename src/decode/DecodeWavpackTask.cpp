#include "decode/DecodeWavpackTask.h"

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

/// Without leave wvunpack asks before it replaces a file, and gets no answer.
QStringList wvunpackArguments(const QString& source, const QString& output, bool replaces)
{
    QStringList arguments{source};
    if (replaces) arguments += u"-y"_s;
    return arguments << u"-o"_s << output;
}

} // namespace

DecodeWavpackTask::DecodeWavpackTask()
    : ToolDecoder({.tool = u"wvunpack"_s,
                   .arguments = wvunpackArguments,
                   .grammar = ConsoleGrammar::wavpackDecode,
                   .status = u"Decoding from Wavpack"_s})
{
}

std::shared_ptr<DecodeWavpackTask>
DecodeWavpackTask::initDecodeTaskWithQueueFileNameOutputPathFormat(ZOLTTaskQueue* queue, const QString& fileName,
                                                                   const QString& outputPath, const QString& format)
{
    std::shared_ptr<DecodeWavpackTask> task(new DecodeWavpackTask);
    task->setUpDecoder(queue, fileName, outputPath, format);
    return task;
}

} // namespace zolt
