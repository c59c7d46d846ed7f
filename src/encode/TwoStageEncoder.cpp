#include "encode/TwoStageEncoder.h"

#include "encode/TemporaryFile.h"
#include "shell/Constants.h"

namespace zolt {

void TwoStageEncoder::setUpEncoder(ZOLTTaskQueue* queue, const QString& fileName, const QString& option,
                                   const QString& outputPath)
{
    setUpStaged(queue, fileName, outputPath);
    option_ = option;
    outFile_ = outputFile(kind_.tool.extension);
}

bool TwoStageEncoder::hasAiffSource() const
{
    const QString type = sourceType();
    return type == Constants::AIF || type == Constants::AIFF;
}

int TwoStageEncoder::stageCount() const
{
    return hasAiffSource() ? 2 : 1;
}

void TwoStageEncoder::doStartTask()
{
    beginRow();
    topTextField()->setStringValue(kind_.status);
    doEncodeCall();
    stopTask(nullptr);
    deleteSource(fileName());
}

void TwoStageEncoder::doEncodeCall()
{
    const TemporaryFile temporary(hasAiffSource() ? convertToWav(fileName()) : QString());
    const QString input = temporary.path().isEmpty() ? fileName() : temporary.path();
    runTool({.tool = kind_.tool.name,
             .arguments = kind_.tool.arguments(option_, input, outFile_),
             .stopAt = kind_.stopAt,
             .afterwards = kind_.afterwards});
}

void TwoStageEncoder::processTaskOutput(const OptionalText& output)
{
    kind_.tool.grammar.follow(output, *this);
}

} // namespace zolt
