#include "encode/EncodeALACToAPETask.h"

#include "tags/TagLibTagsHelper.h"

namespace zolt {

namespace {

OptionalText writeTags(const QString& path, const TagsObject& tags)
{
    return TagLibTagsHelper().writeTagsForAPEFileTagObjectWriteEmptyTags(path, tags, false);
}

} // namespace

EncodeALACToAPETask::EncodeALACToAPETask()
    : AppleLosslessEncoder({.tool = EncoderTool::mac(),
                            .status = QStringLiteral("Encoding Apple Lossless to APE"),
                            .tagStatus = QStringLiteral("Writing APE Tags"),
                            .writeTags = writeTags})
{
}

std::shared_ptr<EncodeALACToAPETask>
EncodeALACToAPETask::initEncodeTaskWithQueueFileNameOutputPathLevel(ZOLTTaskQueue* queue, const QString& fileName,
                                                                    const QString& outputPath, const QString& level)
{
    std::shared_ptr<EncodeALACToAPETask> task(new EncodeALACToAPETask);
    task->setUpEncoder(queue, fileName, outputPath, level);
    return task;
}

} // namespace zolt
