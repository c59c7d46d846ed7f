// Encodes one Shorten or Monkey's Audio file to FLAC, through shntool.
#pragma once

#include "engine/DeletingTask.h"
#include "engine/ZOLTAsyncNSTask.h"

namespace zolt {

class TagsObject;

class EncodeSHNToFlacTask : public DeletingTask<ZOLTAsyncNSTask>
{
public:
    /// @param arguments  shntool's argument vector; its elements 6 and 9 are the output folder and the source
    /// @param type       the source's extension in upper case
    static std::shared_ptr<EncodeSHNToFlacTask>
    initAsyncTaskWithQueueLaunchPathArgumentsType(ZOLTTaskQueue* queue, const QString& launchPath,
                                                  const QStringList& arguments, const QString& type);

    void processTaskOutput(const OptionalText& output) override;
    QString source() const override { return fileName_; }
    /// Keeps the text of a failure alone, writes the tags of Monkey's Audio whatever the outcome, and deletes the
    /// source after success if asked to, never into the trash.
    void cleanup() override;
    std::shared_ptr<TagsObject> getApeTags() const;

private:
    EncodeSHNToFlacTask() = default;
    void writeTags();

    QString fileName_;
    QString outputPath_;
    QString type_;
};

} // namespace zolt
