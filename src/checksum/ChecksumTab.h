// The tab of checksums: tests audio files, makes one list over its files, or checks lists.
#pragma once

#include "platform/controls/CheckBox.h"
#include "platform/controls/Matrix.h"
#include "shell/BaseTab.h"

namespace zolt {

class CreateMD5Task;
class CreateST5Task;
class OutputWindowController;
class VerifyApeTask;
class VerifyFlacTask;
class VerifyTTATask;
class VerifyWavepackTask;
class ZOLTTask;
class ZOLTTaskResults;

class ChecksumTab : public BaseTab
{
public:
    /// The rows of `commandOptions`.
    enum Command { TestFiles, CreateList, VerifyLists };

    ChecksumTab();

    void awakeFromNib() override;
    /// One sentence for a person on the present choice: what a kind of list is good for, or what a command does.
    QString aboutChoice() const;

    /// The line of a fingerprint list for a FLAC file; blocks.
    static QString fingerprint(const QString& path);
    /// @param sourceSave  the list stands beside the first of the files; otherwise the place is asked for
    /// @return nothing where that question was dismissed
    std::shared_ptr<CreateST5Task> createST5WithQueueSourceSave(const QStringList& files, ZOLTTaskQueue* queue,
                                                                bool sourceSave) const;
    /// As createST5WithQueueSourceSave; the task reads the list object when it starts.
    std::shared_ptr<CreateMD5Task> createMD5WithQueueSourceSave(const std::shared_ptr<FileList>& files,
                                                                ZOLTTaskQueue* queue, bool sourceSave) const;
    std::shared_ptr<VerifyTTATask> verifyTTAWithResultsWithQueue(const QString& file,
                                                                 const std::shared_ptr<ZOLTTaskResults>& results,
                                                                 ZOLTTaskQueue* queue) const;
    std::shared_ptr<VerifyWavepackTask>
    verifyWavepackWithResultsWithQueue(const QString& file, const std::shared_ptr<ZOLTTaskResults>& results,
                                       ZOLTTaskQueue* queue) const;
    std::shared_ptr<VerifyApeTask> verifyAPEWithResultsWithQueue(const QString& file,
                                                                 const std::shared_ptr<ZOLTTaskResults>& results,
                                                                 ZOLTTaskQueue* queue) const;
    std::shared_ptr<VerifyFlacTask> verifyFlacWithResultsWithQueue(const QString& file,
                                                                   const std::shared_ptr<ZOLTTaskResults>& results,
                                                                   ZOLTTaskQueue* queue) const;

    /// Empties the list on every way but two: it was empty, or the question for a fingerprint list's place was
    /// dismissed. Files of the wrong kind are passed over without a word.
    void executeCommand(Sender sender) override;
    /// The choices of a new list are enabled for that command alone.
    void displayRelevantOptions() override;

    Outlets outlets() const override;
    WorkPlan workPlan() const override;

    // Outlets.
    std::shared_ptr<Matrix> commandOptions;
    std::shared_ptr<Matrix> createChecksumOptions;
    std::shared_ptr<CheckBox> sourceSaveButton = std::make_shared<CheckBox>();
    std::shared_ptr<OutputWindowController> outputWindowController; ///< nobody uses it

private:
    /// Makes the task for a file; none where the file is passed over.
    using TaskMaker = std::shared_ptr<ZOLTTask> (*)(const ChecksumTab& tab, const QString& file,
                                                    const std::shared_ptr<ZOLTTaskResults>& report,
                                                    ZOLTTaskQueue* queue);

    QString kind() const;
    QString tool(const QString& name) const;
    OptionalText listPath(const QString& firstFile, bool sourceSave, const QString& name, const QString& title) const;
    void queueAsOneReport(TaskMaker taskOf);
    void createList(bool sourceSave);
    bool createFingerprints(const QStringList& files, bool sourceSave) const;
    bool queueIsFull() const;
};

} // namespace zolt
