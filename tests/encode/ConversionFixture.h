// Runs conversions as a task's thread does.
#pragma once

#include "AudioSamples.h"
#include "encode/EncodeCoreAudioSync.h"
#include "engine/ZOLTTask.h"

namespace zolt::test {

class Conversion : public testing::Test
{
protected:
    /// A task and its results hold each other; the queue, which lets go of them, is not there.
    ~Conversion() override { task_->setResults(nullptr); }

    QString path(const QString& name) const { return folder_.filePath(name); }

    std::shared_ptr<EncodeCoreAudioSync> encoder(const QString& from, const QString& to, uint32_t format,
                                                 uint32_t fileType) const
    {
        return EncodeCoreAudioSync::initEncodeWithTaskFileNameOutputFileFormatTypeFileType(task_, from, to, format,
                                                                                           fileType);
    }

    void toLossless(const QString& from, const QString& to) const
    {
        encoder(from, to, formatId::AppleLossless, fileTypeId::M4a)->doEncodeCall();
    }
    void toWave(const QString& from, const QString& to) const
    {
        encoder(from, to, formatId::LinearPcm, fileTypeId::Wave)->doEncodeCall();
    }
    void toAiff(const QString& from, const QString& to) const
    {
        encoder(from, to, formatId::LinearPcm, fileTypeId::Aiff)->doEncodeCall();
    }

    /// The results text of a failure.
    QString failure(const QString& from, const QString& reason) const
    {
        return QStringLiteral("Error encoding ") + from + QStringLiteral(" to Apple Lossless:\n") + reason +
               QStringLiteral("\n");
    }

    QTemporaryDir folder_;
    std::shared_ptr<ZOLTTask> task_ = ZOLTTask::initWithQueue(nullptr);
};

} // namespace zolt::test
