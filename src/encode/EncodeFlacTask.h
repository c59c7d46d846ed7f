// Encodes one file with flac; the tags of an AIFF source are written into the new file.
#pragma once

#include "engine/DeletingTask.h"
#include "engine/ZOLTAsyncNSTask.h"

namespace zolt {

class TagsObject;

class EncodeFlacTask : public DeletingTask<ZOLTAsyncNSTask>
{
public:
    /// @param fileName   full path of the source
    /// @param arguments  flac's argument vector; its last element is the output path
    static std::shared_ptr<EncodeFlacTask>
    initAsyncTaskWithFileNameQueueLaunchPathArguments(const QString& fileName, ZOLTTaskQueue* queue,
                                                      const QString& launchPath, const QStringList& arguments);

    void processTaskOutput(const OptionalText& output) override;
    QString source() const override { return fileName_; }
    /// Keeps the text of a failure alone, writes an AIFF source's tags whatever the outcome, and deletes the source
    /// after success if asked to, never into the trash.
    void cleanup() override;
    std::shared_ptr<TagsObject> getAiffTags() const;

private:
    EncodeFlacTask() = default;
    void writeTags();

    QString fileName_;
};

} // namespace zolt
