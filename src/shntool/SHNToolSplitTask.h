// Has shntool cut a file, and gives the pieces the names of their tracks.
#pragma once

#include "engine/ZOLTAsyncNSTask.h"
#include "shntool/SplitPoints.h"

namespace zolt {

class SHNToolSplitTask : public ZOLTAsyncNSTask
{
public:
    static std::shared_ptr<SHNToolSplitTask> initAsyncTaskWithQueueLaunchPathArguments(ZOLTTaskQueue* queue,
                                                                                       const QString& launchPath,
                                                                                       const QStringList& arguments);

    // Before the task is queued.
    void setOutputPath(const QString& folder) { outputPath_ = folder; }
    void setTrackTitleMap(const TrackTitles& titles) { trackTitleMap_ = titles; }

    const QString& outputPath() const { return outputPath_; }
    const TrackTitles& trackTitleMap() const { return trackTitleMap_; }

    void processTaskOutput(const OptionalText& output) override;
    /// Renames the pieces, whatever the outcome; a name that is taken or cannot be made leaves a piece as it is.
    void cleanup() override;

private:
    SHNToolSplitTask() = default;

    TrackTitles trackTitleMap_;
    QString outputPath_;
};

} // namespace zolt
