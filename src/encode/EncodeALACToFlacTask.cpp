#include "encode/EncodeALACToFlacTask.h"

#include "tags/FlacTagHelper.h"

namespace zolt {

namespace {

OptionalText writeTags(const QString& path, const TagsObject& tags)
{
    FlacTagHelper().writeTagsForFileTagObjectWriteEmptyTags(path, tags, false);
    return std::nullopt;
}

} // namespace

EncodeALACToFlacTask::EncodeALACToFlacTask()
    : AppleLosslessEncoder({.tool = EncoderTool::flac(),
                            .status = QStringLiteral("Encoding Apple Lossless to Flac"),
                            .tagStatus = QStringLiteral("Writing FLAC Tags"),
                            .writeTags = writeTags})
{
}

std::shared_ptr<EncodeALACToFlacTask> EncodeALACToFlacTask::initEncodeTaskWithQueueFileNameOutputPathLevelVerify(
    ZOLTTaskQueue* queue, const QString& fileName, const QString& outputPath, int, bool verify)
{
    std::shared_ptr<EncodeALACToFlacTask> task(new EncodeALACToFlacTask);
    task->setUpEncoder(queue, fileName, outputPath, verify ? QStringLiteral("-V") : QString());
    return task;
}

} // namespace zolt
