// The tab for looking at tags and changing them, file by file or in many at a time.
#pragma once

#include "platform/controls/Button.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/ImageView.h"
#include "platform/controls/TextField.h"
#include "platform/threads/NotificationCenter.h"
#include "shell/BaseTab.h"
#include "shell/ZOLTDragAndDropImageView.h"
#include "tags/TagUndo.h"
#include "tags/TagWriteJob.h"
#include "tags/TagWriteRun.h"
#include "tags/TagsObject.h"
#include "tags/ZOLTCustomTagsPanel.h"

#include <functional>

namespace zolt {

struct TagField;

/// Has no tasks: its command has written every file when it returns. Main thread.
class TagsTab : public BaseTab
{
public:
    TagsTab();
    ~TagsTab() override;

    /// Whether the selected files are named from the track names, by their rows in the whole list.
    bool autoName() const { return autoNameButton->state(); }
    void setAutoName(bool autoName) { autoNameButton->setState(autoName); }
    /// Whether empty fields are written too; see the writers for what goes then.
    bool writeEmptyTags() const { return writeEmptyTagsButton->state(); }
    void setWriteEmptyTags(bool writeEmptyTags) { writeEmptyTagsButton->setState(writeEmptyTags); }

    void openCustomTagsPanel(Sender sender);
    /// True for the item that loads a cue sheet, while this tab is in front.
    bool validateMenuItem(const QString& title) const;
    void loadTagsFromCueSheet(Sender sender);
    void awakeFromNib() override;
    void clearFiles() override;
    /// The check box was clicked: brings the names up if it is on.
    void autoNameClick(Sender sender);
    void setTrackNameWindow(const std::shared_ptr<TrackNameInputController>& window) override;
    void showNamesWindow(Sender sender);
    /// Shows the tags of the one selected file. @throws AssertionException for an M4A file that cannot be read
    void fillTagsForSelectedRow();
    void tableViewSelectionDidChange();
    /// Writes into the selected files, from the top. Does nothing while a run is under way.
    /// @throws AssertionException for a file that cannot be written, which ends the run
    /// @throws RangeException for a row behind the last name
    void executeCommand(Sender sender) override;
    void trackNamesEntered(const Notification& notification);

    /// From now on every run can be undone. @param folder  where the files' own tags are kept; private to the user
    void setUndoFolder(const QString& folder) { undo_.emplace(folder); }
    bool canUndoWrite() const { return undo_ && !isWriting_ && undo_->canUndo(); }
    /// Gives the files of the last run their own tags back, byte for byte, and shows them; the result tells of files
    /// that had to be left alone.
    void undoWrite(Sender sender);

    Outlets outlets() const override;
    WorkPlan workPlan() const override { return workPlanWithout({}); }
    WorkPlan workPlanWithout(const QList<qsizetype>& rows) const override;
    /// The files behind rows that are left out keep their names and numbers, which go by the whole list.
    void executeCommandWithout(const QList<qsizetype>& rows) override;

    /// What the last run did; empty before the first.
    const TagWriteRun& lastRun() const { return run_; }
    bool isWriting() const { return isWriting_; }
    /// The cover's kind and size, or that the file's own cannot be shown.
    QString coverInWords() const;
    /// The control that shows a field of the record. @param field  of tagFields()
    TextField& control(const TagField& field) const;
    /// The files that are selected, in list order.
    QStringList selectedFiles() const;
    /// Called when other files are selected, and when files have been written or put back.
    void setFollower(std::function<void()> follow) { follow_ = std::move(follow); }
    /// Called ahead of each file of a run, and behind the last, so that a window can repaint itself.
    /// @param work  says whether to go on
    void setBetweenFiles(std::function<bool()> work) { betweenFiles_ = std::move(work); }
    const QStringList& names() const { return names_; }
    ZOLTCustomTagsPanel& customTagsPanel() { return customTagsPanel_; }

    // Outlets.
    std::shared_ptr<TextField> titleText = std::make_shared<TextField>();
    std::shared_ptr<TextField> artistText = std::make_shared<TextField>();
    std::shared_ptr<TextField> dateText = std::make_shared<TextField>();
    std::shared_ptr<TextField> albumText = std::make_shared<TextField>();
    std::shared_ptr<TextField> commentText = std::make_shared<TextField>();
    std::shared_ptr<TextField> discText = std::make_shared<TextField>();
    std::shared_ptr<TextField> trackText = std::make_shared<TextField>();
    std::shared_ptr<TextField> trackTotalText = std::make_shared<TextField>();
    std::shared_ptr<TextField> discTotalText = std::make_shared<TextField>();
    std::shared_ptr<TextField> genreText = std::make_shared<TextField>();
    std::shared_ptr<TextField> composerText = std::make_shared<TextField>();
    std::shared_ptr<TextField> multipleSelectionsLabel = std::make_shared<TextField>(TextField::labelStyle());
    std::shared_ptr<ImageView> albumArtImageView = std::make_shared<ZOLTDragAndDropImageView>();
    /// What the last run wrote, in words; our own.
    std::shared_ptr<TextField> resultLabel = std::make_shared<TextField>(TextField::labelStyle());
    std::shared_ptr<CheckBox> autoNameButton = std::make_shared<CheckBox>();
    std::shared_ptr<CheckBox> writeEmptyTagsButton = std::make_shared<CheckBox>();
    std::shared_ptr<Button> customTagsButton = std::make_shared<Button>();
    std::shared_ptr<Button> namesButton = std::make_shared<Button>();
    std::shared_ptr<Button> cueSheetButton = std::make_shared<Button>();

private:
    void followSelection();
    void fillTags(const TagsObject& tags);
    bool isSelectionCurrent() const;
    QList<TagWriteJob::Row> selectedRows() const;
    TagsObject sharedRecord(bool isOne) const;
    TagWriteJob jobWithout(const QList<qsizetype>& leftOut) const;
    bool hasEnoughNames(const TagWriteJob& job) const;
    void write(const TagWriteJob& job);
    void keep(const TagWriteJob& job);
    bool goesOn(const QString& progress);
    void endWork(const QString& result);
    void showPutBack(const QStringList& files);
    void writeRows(const TagWriteJob& job);
    void writeRow(const TagWriteJob& job, const TagWriteJob::Row& row);

    std::shared_ptr<TrackNameInputController> trackNamesWindow_;
    ZOLTCustomTagsPanel customTagsPanel_;
    QStringList names_;
    QList<qsizetype> leftOut_;  ///< while such a command is pressed
    QStringList shown_;         ///< the selected files that the fields are about
    unsigned shownReloads_ = 0; ///< how often the list had been reloaded then
    TagWriteRun run_;
    std::optional<TagUndo> undo_; ///< none where nobody could undo
    bool isWriting_ = false;
    bool fileHasArt_ = false;      ///< the one selected file, when it was shown
    bool artIsUnreadable_ = false; ///< of the one selected file
    std::function<bool()> betweenFiles_;
    std::function<void()> follow_;
};

} // namespace zolt
