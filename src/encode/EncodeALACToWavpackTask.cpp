#include "encode/EncodeALACToWavpackTask.h"

#include "tags/TagLibTagsHelper.h"

namespace zolt {

namespace {

OptionalText writeTags(const QString& path, const TagsObject& tags)
{
    return TagLibTagsHelper().writeTagsForWavpackFileTagObjectWriteEmptyTags(path, tags, false);
}

} // namespace

EncodeALACToWavpackTask::EncodeALACToWavpackTask()
    : AppleLosslessEncoder({.tool = EncoderTool::wavpack(),
                            .status = QStringLiteral("Encoding Apple Lossless to Wavpack"),
                            .tagStatus = QStringLiteral("Writing Wavpack Tags"),
                            .writeTags = writeTags})
{
}

std::shared_ptr<EncodeALACToWavpackTask>
EncodeALACToWavpackTask::initEncodeTaskWithQueueFileNameOutputPathLevel(ZOLTTaskQueue* queue, const QString& fileName,
                                                                        const QString& outputPath, const QString& level)
{
    std::shared_ptr<EncodeALACToWavpackTask> task(new EncodeALACToWavpackTask);
    task->setUpEncoder(queue, fileName, outputPath, level);
    return task;
}

} // namespace zolt
