// Decodes one FLAC file with flac.
#pragma once

#include "engine/DeletingTask.h"
#include "engine/ZOLTAsyncNSTask.h"

namespace zolt {

class TagsObject;

class DecodeFlacTask : public DeletingTask<ZOLTAsyncNSTask>
{
public:
    /// @param fileName   full path of the source
    /// @param arguments  flac's argument vector; its last element is the output path
    static std::shared_ptr<DecodeFlacTask>
    initAsyncTaskWithFileNameQueueLaunchPathArguments(const QString& fileName, ZOLTTaskQueue* queue,
                                                      const QString& launchPath, const QStringList& arguments);

    void processTaskOutput(const OptionalText& output) override;
    /// The source's tags, read with metaflac; blocks.
    std::shared_ptr<TagsObject> getFlacTags() const;
    /// Keeps the text of a failure alone, copies the tags into AIFF output whatever the outcome, and deletes the source
    /// after success if asked to. Stands being run twice.
    void cleanup() override;
    QString source() const override { return fileName_; }

private:
    DecodeFlacTask() = default;
    void copyTags(const QString& output);

    QString fileName_;
};

} // namespace zolt
