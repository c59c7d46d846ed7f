#include "encode/EncodeWavpackTask.h"

namespace zolt {

EncodeWavpackTask::EncodeWavpackTask()
    : TwoStageEncoder({.tool = EncoderTool::wavpack(), .status = QStringLiteral("Encoding to Wavpack")})
{
}

std::shared_ptr<EncodeWavpackTask>
EncodeWavpackTask::initEncodeTaskWithQueueFileNameLevelOutputPath(ZOLTTaskQueue* queue, const QString& fileName,
                                                                  const QString& level, const QString& outputPath)
{
    std::shared_ptr<EncodeWavpackTask> task(new EncodeWavpackTask);
    task->setUpEncoder(queue, fileName, level, outputPath);
    return task;
}

} // namespace zolt
