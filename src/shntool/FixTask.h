// Has shntool repair the sector boundaries of a set of files, and then makes MD5 lists of what came out.
#pragma once

#include "engine/DeletingTask.h"
#include "engine/ZOLTThreadTask.h"

#include <QHash>

namespace zolt {

class BaseTab;
class FileList;

/// Which files are touched and how is the tool's decision alone.
class FixTask : public DeletingTask<ZOLTThreadTask>
{
public:
    // What md5Option may say; with any other text no list is made.
    static inline const QString noMD5 = QStringLiteral("None");
    static inline const QString oneMD5 = QStringLiteral("1 md5");
    static inline const QString MD5ByDisc = QStringLiteral("MD5 by disc*"); ///< the star is part of the label

    /// @param fileNames     the tab's own list object; the set is what it holds once the task runs
    /// @param outputFormat  what shntool calls it, in lower case
    /// @param tab           the files of its list leave it at the end; outlives the task
    static std::shared_ptr<FixTask> initFixTaskWithQueueFileNamesOutputFormatOutputPathMd5OptionFlacLevelTab(
        ZOLTTaskQueue* queue, const std::shared_ptr<FileList>& fileNames, const QString& outputFormat,
        const QString& outputPath, const QString& md5Option, int flacLevel, BaseTab* tab);

    /// The text without its percentages.
    static QString stripPercent(const QString& text);
    void processTaskOutput(const OptionalText& output) override;
    /// Writes one list over the outputs of these sources: names without folders, in the order given. An output that is
    /// missing has the digest of nothing. A list that cannot be written is not told.
    void doMd5CallFiles(const QString& listName, const QStringList& files);
    /// Writes the lists that the option asks for; none over an empty set, so that no earlier list is lost.
    void handleMD5();
    /// Runs the tool to the end of its output, also after a cancel.
    void doFixCall();
    void startTask() override;
    void stopTask(Sender sender) override;
    /// Whether it still reads the list, or means to delete or empty what stands in it. Any thread.
    bool worksOnList() const { return worksOnList_; }

    const QString& md5Option() const { return md5Option_; }
    const QString& outputFormat() const { return outputFormat_; }
    const QString& outputPath() const { return outputPath_; }
    int flacLevel() const { return flacLevel_; }
    /// What the report says: the tool's text without percentages.
    const QString& totalOutput() const { return totalOutput_; }

protected:
    void doStartTask() override;
    void finishAfterFault() override;

private:
    FixTask();

    QStringList formatArguments() const;
    QString target(const QString& file) const;
    void showFile(const QString& text);
    void letGoOfList();

    QString totalOutput_; // the task's own thread, as fileName_
    QString fileName_;
    QString md5Option_;
    QString outputFormat_;
    QString outputPath_;
    std::shared_ptr<FileList> fileNames_;
    QHash<QString, QString> fileNameDictionary_; // the place in the set, from "1" on, by the name without extension
    int flacLevel_ = 0;
    BaseTab* fixTab_ = nullptr;
    std::atomic<bool> worksOnList_ = true;
};

} // namespace zolt
