#include "encode/EncodeTTATask.h"

namespace zolt {

EncodeTTATask::EncodeTTATask()
    : TwoStageEncoder({.tool = EncoderTool::ttaenc(),
                       .status = QStringLiteral("Encoding to TTA"),
                       .stopAt = ToolCall::StopAt::Cancel,
                       .afterwards = ToolCall::Afterwards::WaitAndTerminate})
{
}

std::shared_ptr<EncodeTTATask> EncodeTTATask::initEncodeTaskWithQueueFileNameOutputPath(ZOLTTaskQueue* queue,
                                                                                        const QString& fileName,
                                                                                        const QString& outputPath)
{
    std::shared_ptr<EncodeTTATask> task(new EncodeTTATask);
    task->setUpEncoder(queue, fileName, QString(), outputPath);
    return task;
}

} // namespace zolt
