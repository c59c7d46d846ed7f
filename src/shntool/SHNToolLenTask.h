// Has shntool measure a set of files and makes a report of its table.
#pragma once

#include "engine/ZOLTAsyncNSTask.h"

namespace zolt {

/// Times are texts here, taken from the tool's lines: nothing is added up.
class SHNToolLenTask : public ZOLTAsyncNSTask
{
public:
    /// @param lenType  the form of the report: NORMAL_LEN_OUTPUT, LEN_BY_FILESET or LEN_BY_DISC of Constants
    static std::shared_ptr<SHNToolLenTask> initWithQueueLaunchPathArgumentsLenType(ZOLTTaskQueue* queue,
                                                                                   const QString& launchPath,
                                                                                   const QStringList& arguments,
                                                                                   const QString& lenType);
    /// As above, for one report over several discs.
    static std::shared_ptr<SHNToolLenTask>
    initWithResultsQueueLaunchPathArgumentsLenType(const std::shared_ptr<ZOLTTaskResults>& results,
                                                   ZOLTTaskQueue* queue, const QString& launchPath,
                                                   const QStringList& arguments, const QString& lenType);

    /// The list of tracks with numbers, names and times, and the total. Each call widens the column of names by one.
    /// @throws RangeException where the setting for its lines is empty
    QString lenByFileSetOutput();
    /// The tool's table with the names of the files in place of their paths.
    QString normalSHNLenOutput() const;
    /// Appends the report of what has been gathered, also after a cancel or a failure; a cancel stops twice, and the
    /// report then stands twice.
    void stopTask(Sender sender) override;

    // Before the task is queued.
    void setMaxTrackNameLength(int length) { maxTrackNameLengh_ = length; }
    void setDiscNumber(const QString& key) { discNumber_ = key; }
    /// In the order of the files; those behind the last one go by their files' names.
    void setTrackNames(const QStringList& names) { names_ = names; }

    int maxTrackNameLength() const { return maxTrackNameLengh_; }
    OptionalText discNumber() const { return discNumber_; }
    std::optional<QStringList> trackNames() const { return names_; }
    const QString& type() const { return type_; }

    void processTaskOutput(const OptionalText& output) override;

protected:
    void showStart() override;
    void finishAfterFault() override { ZOLTAsyncNSTask::stopTask(nullptr); }

private:
    struct Track
    {
        QString name;
        QString time;
    };
    struct Table
    {
        std::vector<Track> tracks;
        QString total;
    };

    SHNToolLenTask() = default;
    void appendReport();
    Table table() const;
    QString trackName(const QString& line, qsizetype index) const;
    QString trackLines(const std::vector<Track>& tracks) const;

    QString type_;
    std::optional<QStringList> names_;
    OptionalText discNumber_;
    int maxTrackNameLengh_ = 0;
    QString output_;
};

} // namespace zolt
