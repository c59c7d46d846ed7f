#include "encode/AppleLosslessEncoder.h"

#include "encode/TemporaryFile.h"
#include "tags/AACTagsHelper.h"

namespace zolt {

void AppleLosslessEncoder::setUpEncoder(ZOLTTaskQueue* queue, const QString& fileName, const QString& outputPath,
                                        const QString& option)
{
    setUpStaged(queue, fileName, outputPath);
    option_ = option;
    outFile_ = outputFile(kind_.tool.extension);
}

void AppleLosslessEncoder::doStartTask()
{
    beginRow();
    topTextField()->setStringValue(kind_.status);
    doEncodeCall();
    stopTask(nullptr);
}

void AppleLosslessEncoder::doEncodeCall()
{
    const TemporaryFile input(convertToWav(fileName()));
    runTool({.tool = kind_.tool.name,
             .arguments = kind_.tool.arguments(option_, input.path(), outFile_),
             .stopAt = ToolCall::StopAt::CancelOrError});
}

void AppleLosslessEncoder::processTaskOutput(const OptionalText& output)
{
    kind_.tool.grammar.follow(output, *this);
}

std::shared_ptr<TagsObject> AppleLosslessEncoder::getALACTags() const
{
    return AACTagsHelper().tagsForFile(fileName());
}

void AppleLosslessEncoder::cleanup()
{
    if (!error()) setResults(nullptr);
    if (kind_.writeTags && toolHasEnded()) copyTags();
}

void AppleLosslessEncoder::copyTags()
{
    const auto tags = getALACTags();
    if (!tags) return;
    topTextField()->setStringValue(kind_.tagStatus);
    tellInReport(kind_.writeTags(outFile_, *tags));
}

} // namespace zolt
