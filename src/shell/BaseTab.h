// What every tab inherits: a list of files, the ways to fill it, the checks on what enters it, and two hooks.
#pragma once

#include "platform/controls/Control.h"
#include "platform/controls/TabView.h"
#include "platform/controls/Table.h"
#include "platform/text/Text.h"
#include "shell/FileIntake.h"
#include "shell/FileList.h"
#include "shell/Outlet.h"
#include "shell/WorkPlan.h"

#include <QSet>

#include <memory>
#include <mutex>

namespace zolt {

class TrackNameInputController;
class ZOLTController;
class ZOLTTaskQueue;

/// One object of each tab class exists, for the life of the controller. Main thread.
class BaseTab : public TableDataSource
{
public:
    /// The kind of drop that a drag announces: everything is copied.
    static constexpr int copyOperation = 1;

    ~BaseTab() override;
    BaseTab(const BaseTab&) = delete;
    BaseTab& operator=(const BaseTab&) = delete;

    /// The interface has been loaded: the table takes drops of files. Overrides call this first.
    virtual void awakeFromNib();
    /// Appends with no validation, sorts, reloads.
    void addFile(const QString& path);
    /// Hook after each addition, once the list is whole.
    virtual void filesAdded() {}
    /// Asks for files and adds them.
    void addButtonClick(Sender sender);
    void clearButtonClick(Sender sender);
    /// Hook after rows were taken out. @param rows  their numbers before that
    virtual void rowsRemoved(const QList<qsizetype>& rows) { Q_UNUSED(rows); }
    /// Empties the list. Main thread.
    virtual void clearFiles();
    /// What a task that works on the list itself does at its end: empties the list that it was given, whose files leave
    /// the tab with that; files that its command left out stay. Any thread.
    void clearFiles(const std::shared_ptr<FileList>& list);
    /// The action of option controls.
    void changeDisplayOptions(Sender sender);
    /// Hook: shows or hides option controls by the current choices. Called when the tab is selected.
    virtual void displayRelevantOptions() {}

    qsizetype numberOfRowsInTableView() const override;
    /// The row's last path component whatever the column; the full path stays in `fileNames`.
    QString tableViewObjectValueForTableColumnRow(int column, qsizetype row) const override;
    /// Any drag may come; what it brings is judged once it is dropped.
    int tableViewValidateDropProposedRowProposedDropOperation(qsizetype row, int operation) const;
    /// Adds the dropped paths wherever they fell. @return true
    bool tableViewAcceptDropRowDropOperation(const QStringList& paths, qsizetype row, int operation);

    /// Hook of the tab's command button.
    virtual void executeCommand(Sender sender);
    /// Asks where to save. @return the chosen path, or nothing
    OptionalText openSavePanelTitle(const QString& fileName, const OptionalText& title) const;
    /// The valid files at and below the path; extensions that were refused enter the set.
    QStringList getFilesFileManagerBadExtensions(const QString& path, QSet<QString>& badExtensions) const;
    /// Adds paths as a person gives them: directories whole, other files if the tab takes them. Refused ones are told
    /// in one alert.
    /// Where the controller has folders walked in the background, and something takes longer, this returns at once: the
    /// rows come in by and by, and the hook and the alert behind the last. No command is begun until then.
    void addFiles(const QStringList& paths);
    /// As addFiles for files from outside, which another rule sorts out without a word.
    /// @param accepts  called on any thread
    void addFilesAccepted(const QStringList& paths, const Acceptance& accepts);
    /// Whether files are still coming in.
    bool isTakingIn() const { return intake_.isRunning(); }
    /// Gives up what is still coming in.
    void stopTakingIn();
    /// Returns when nothing comes in any more; the event loop goes on meanwhile.
    void waitForFiles() const;
    /// The folder to write to: the destination if there is one, else asked for. @return the path, or nothing
    OptionalText chooseOutputFolder() const;

    /// Has the outputs written to this folder without a question; an absent one leaves the question to the command.
    void setDestination(const OptionalText& folder) { destination_ = folder; }
    const OptionalText& destination() const { return destination_; }
    /// Hands over the window for track names that several tabs share; a tab without names has no use for it.
    virtual void setTrackNameWindow(const std::shared_ptr<TrackNameInputController>& window) { Q_UNUSED(window); }
    /// The controls of the tab, for whatever shows them.
    virtual Outlets outlets() const { return {}; }
    /// What the command would do with the present list and choices. Cheap: looks at no file.
    virtual WorkPlan workPlan() const;

    /// As workPlan, for a press that leaves these rows out.
    virtual WorkPlan workPlanWithout(const QList<qsizetype>& rows) const;

    /// Takes the rows out of the list.
    void removeRows(const QList<qsizetype>& rows);
    /// Presses the command on all rows but these, which stay in the tab whatever the command does: it gets a list of
    /// its own without them, and what it takes out of that leaves the tab. Nothing is pressed where no other is left,
    /// and while files still come in. The tasks' origin is this tab.
    virtual void executeCommandWithout(const QList<qsizetype>& rows);
    /// The names of the tools that the command would run on the present list, for the look-up before it is pressed.
    QStringList toolsNeeded() const { return workPlan().tools; }

    /// The program's queue; none without a controller.
    ZOLTTaskQueue* taskQueue() const;
    const FileList& fileNames() const { return *fileNames_; }
    /// The list object itself, for tasks that read it later: one for the tab's life, but for a command that leaves rows
    /// out. Any thread.
    std::shared_ptr<FileList> fileList() const;
    const QString& pathToCommandLineTools() const { return pathToCommandLineTools_; }

    // Outlets.
    std::shared_ptr<TabViewItem> tabViewItem;
    std::shared_ptr<Table> tableView = std::make_shared<Table>();
    ZOLTController* zoltController = nullptr;
    bool taskCompleted = false; ///< nobody uses it

    /// Whether files of this kind may enter the list.
    bool isValid(const QString& path) const;

protected:
    BaseTab();
    QString label() const;

private:
    void list(const QStringList& paths);
    void tellRefused(const QSet<QString>& extensions) const;
    bool goesBeside(const QStringList& paths) const;
    void pressAsOrigin();
    void bringIn(const QStringList& paths, const Acceptance& accepts, bool tells);
    void executeCommandOn(const std::shared_ptr<FileList>& rest);
    struct FormerList
    {
        std::shared_ptr<FileList> list;
        QStringList files; ///< what it held when it was taken away
    };
    FormerList exchangeList(const std::shared_ptr<FileList>& list);
    bool takeBack(const std::shared_ptr<FileList>& whole, const QStringList& given);

    mutable std::mutex listMutex_; ///< over which list it is, which the main thread alone changes
    std::shared_ptr<FileList> fileNames_ = std::make_shared<FileList>();
    OptionalText destination_;
    FileIntake intake_;
    QString pathToCommandLineTools_;
};

} // namespace zolt
