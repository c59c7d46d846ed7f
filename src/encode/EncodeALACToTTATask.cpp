#include "encode/EncodeALACToTTATask.h"

namespace zolt {

EncodeALACToTTATask::EncodeALACToTTATask()
    : AppleLosslessEncoder(
          {.tool = EncoderTool::ttaenc(), .status = QStringLiteral("Encoding Apple Lossless to TTA"), .tagStatus = {}})
{
}

std::shared_ptr<EncodeALACToTTATask>
EncodeALACToTTATask::initEncodeTaskWithQueueFileNameOutputPath(ZOLTTaskQueue* queue, const QString& fileName,
                                                               const QString& outputPath)
{
    std::shared_ptr<EncodeALACToTTATask> task(new EncodeALACToTTATask);
    task->setUpEncoder(queue, fileName, outputPath, QString());
    return task;
}

} // namespace zolt
