#include "decode/DecodeALACTask.h"

#include "platform/audio/AudioFormat.h"
#include "shell/Constants.h"

namespace zolt {

DecodeALACTask::DecodeALACTask()
    : DeletingTask<StagedWav>(
          {.waits = ThreadEnd::Waits::No, .readsStatus = false, .drops = ThreadEnd::Drops::AheadOfRow})
{
}

std::shared_ptr<DecodeALACTask>
DecodeALACTask::initDecodeTaskWithQueueFileNameOutputPathFormat(ZOLTTaskQueue* queue, const QString& fileName,
                                                                const QString& outputPath, const QString& format)
{
    std::shared_ptr<DecodeALACTask> task(new DecodeALACTask);
    task->setUpStaged(queue, fileName, outputPath);
    task->format_ = format;
    return task;
}

void DecodeALACTask::doStartTask()
{
    beginRow();
    topTextField()->setStringValue(QStringLiteral("Decoding from Apple Lossless"));
    doDecodeCall();
    stopTask(nullptr);
    deleteSource(fileName());
}

void DecodeALACTask::doDecodeCall()
{
    convert(fileName(), outputFile(format_.toLower()), formatId::LinearPcm,
            format_.toUpper() == Constants::WAV ? fileTypeId::Wave : fileTypeId::Aiff);
}

void DecodeALACTask::cleanup()
{
    if (!error()) setResults(nullptr);
    deleteSource(fileName());
}

} // namespace zolt
