// Reads tracks of an audio disc with cdda2wav, gives the files their names and writes a log.
#pragma once

#include "engine/ZOLTAsyncNSTask.h"

namespace zolt {

/// The tool writes into its working directory, the task's `setDirectory`; there the files are renamed and the log is
/// written. Without one that is the program's own.
class CDExtractTask : public ZOLTAsyncNSTask
{
public:
    static std::shared_ptr<CDExtractTask> initAsyncTaskWithQueueLaunchPathArguments(ZOLTTaskQueue* queue,
                                                                                    const QString& launchPath,
                                                                                    const QStringList& arguments);

    // What follows comes before the task is queued.
    /// Names the log.
    void setDiscName(const QString& discName) { discName_ = discName; }
    const QString& discName() const { return discName_; }
    /// All tracks go into one file.
    void setOneTrack(bool oneTrack) { oneTrack_ = oneTrack; }
    /// First and last track, joined by "+".
    void setTrackString(const QString& trackString) { trackString_ = trackString; }
    /// The disc's track files; kept in the order of the tracks.
    void setFileNames(const QStringList& files);
    /// True for what the tool prints at the end of each track.
    static bool isEndOfTrack(const QString& output);
    /// The text without percentages at its end and line ends around it.
    static QString stripPercent(const QString& output);
    /// The paths in the order of the tracks; see trackPathsInOrder.
    static QStringList reNumberCdTracks(const QStringList& paths);
    void processTaskOutput(const OptionalText& output) override;
    /// Renames the tool's files and writes the log, whatever the outcome.
    void cleanup() override;

protected:
    void showStart() override;

private:
    CDExtractTask() = default;
    void showProgress(const QString& output);
    void renameTracks();
    void writeLog();
    void giveName(const QString& toolFile, qsizetype index);
    QString inDirectory(const QString& name) const;

    bool oneTrack_ = false; ///< kept: told, and used nowhere
    QString trackString_;
    QStringList fileNames_;
    qsizetype currentFileIndex_ = 0;
    QString discName_;
    QString logOutput_;
};

} // namespace zolt
