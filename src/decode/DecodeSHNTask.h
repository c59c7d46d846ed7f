// Decodes one Shorten file with shntool.
#pragma once

#include "engine/DeletingTask.h"
#include "engine/ZOLTAsyncNSTask.h"

namespace zolt {

class DecodeSHNTask : public DeletingTask<ZOLTAsyncNSTask>
{
public:
    /// @param arguments  the argument vector; its element 9 is the source
    /// @throws RangeException for a shorter one
    static std::shared_ptr<DecodeSHNTask> initAsyncTaskWithQueueLaunchPathArguments(ZOLTTaskQueue* queue,
                                                                                    const QString& launchPath,
                                                                                    const QStringList& arguments);

    void processTaskOutput(const OptionalText& output) override;
    /// Keeps the text of a failure alone, and deletes the source after success if asked to.
    void cleanup() override;
    QString source() const override { return fileName_; }

private:
    DecodeSHNTask() = default;

    QString fileName_;
};

} // namespace zolt
