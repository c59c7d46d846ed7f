#include "encode/EncodeApeTask.h"

namespace zolt {

EncodeApeTask::EncodeApeTask()
    : TwoStageEncoder({.tool = EncoderTool::mac(), .status = QStringLiteral("Encoding to Monkey's Audio")})
{
}

std::shared_ptr<EncodeApeTask> EncodeApeTask::initEncodeTaskWithQueueFileNameLevelOutputPath(ZOLTTaskQueue* queue,
                                                                                             const QString& fileName,
                                                                                             const QString& level,
                                                                                             const QString& outputPath)
{
    std::shared_ptr<EncodeApeTask> task(new EncodeApeTask);
    task->setUpEncoder(queue, fileName, level, outputPath);
    return task;
}

} // namespace zolt
