#include "decode/ToolDecoder.h"

#include "shell/Constants.h"

namespace zolt {

void ToolDecoder::setUpDecoder(ZOLTTaskQueue* queue, const QString& fileName, const QString& outputPath,
                               const QString& format)
{
    setUpStaged(queue, fileName, outputPath);
    toAiff_ = format == Constants::AIFF;
    outFile_ = outputFile(QStringLiteral("wav"));
    if (toAiff_) makeTemporary();
}

void ToolDecoder::makeTemporary()
{
    try {
        outFile_ = temporaryWav();
    } catch (...) {
        setResults(nullptr); // the task is never queued, so nobody else breaks its ring with its results
        throw;
    }
    temporary_ = std::make_unique<TemporaryFile>(outFile_);
}

void ToolDecoder::doStartTask()
{
    beginRow();
    topTextField()->setStringValue(kind_.status);
    doDecodeCall();
    stopTask(nullptr);
    endSource();
}

void ToolDecoder::doDecodeCall()
{
    const auto temporary = std::move(temporary_);
    runTool({.tool = kind_.tool,
             .arguments = kind_.arguments(fileName(), outFile_, toAiff_),
             .afterwards = kind_.afterwards});
    if (toAiff_) convertToAiff(outFile_); // kept: also of what a failed or cancelled tool left
}

void ToolDecoder::processTaskOutput(const OptionalText& output)
{
    kind_.grammar.follow(output, *this);
}

} // namespace zolt
