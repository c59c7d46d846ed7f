// Encodes one file to Shorten with shntool.
#pragma once

#include "engine/DeletingTask.h"
#include "engine/ZOLTAsyncNSTask.h"

namespace zolt {

class EncodeSHNTask : public DeletingTask<ZOLTAsyncNSTask>
{
public:
    /// @param arguments  shntool's argument vector; its element 9 is the source
    /// @param results    shared by all tasks of a command; their texts meet in its first slot
    static std::shared_ptr<EncodeSHNTask>
    initAsyncTaskWithQueueLaunchPathArgumentsWithResults(ZOLTTaskQueue* queue, const QString& launchPath,
                                                         const QStringList& arguments,
                                                         const std::shared_ptr<ZOLTTaskResults>& results);

    void processTaskOutput(const OptionalText& output) override;
    QString source() const override { return fileName_; }
    /// Deletes the source after success if asked to.
    void cleanup() override;
    /// Lets go of the shared results after success: not before, since the end of the row still looks at them for the
    /// end of the set.
    void finalCleanup() override;

private:
    EncodeSHNTask() = default;

    QString fileName_;
};

} // namespace zolt
