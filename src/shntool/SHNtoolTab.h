// The tab of shntool's commands: each takes the whole list at once, or file by file.
#pragma once

#include "platform/controls/Button.h"
#include "platform/controls/Matrix.h"
#include "platform/controls/TextField.h"
#include "shell/BaseTab.h"

namespace zolt {

struct Notification;

class SHNtoolTab : public BaseTab
{
public:
    SHNtoolTab();
    ~SHNtoolTab() override;

    /// Asks for a cue sheet or a text file with split points. @return nothing where that was dismissed
    OptionalText chooseSplitPointFile() const;
    /// In UTF-16 units; 0 for no names.
    static int getMaxTrackNamesLength(const QStringList& names);
    /// Takes a list of names as those of the next length reports, whoever posted it; an empty one as no names.
    void trackNamesEntered(const Notification& notification);
    void setTrackNameWindow(const std::shared_ptr<TrackNameInputController>& window) override;
    /// Shows the window for names, loaded if it is not yet.
    void showNamesWindow(Sender sender);

    // One for each command. A panel that is dismissed ends the handler without a task.
    void handleSHNtoolCue();
    void handleSHNtoolJoin();
    void handleSHNtoolSplit();
    void handleSHNtoolStrip();
    void handleSHNtoolPad();
    void handleSHNtoolTrim();
    void handleSHNtoolCompare();
    void handleSHNtoolInfo();
    void handleSHNtoolLen();

    /// Runs the handler of the selected command, and always empties the list.
    void executeCommand(Sender sender) override;
    /// Each file has the name of its row in the whole list: the names of rows that are left out stay with those.
    void executeCommandWithout(const QList<qsizetype>& rows) override;
    /// Kept: pad and strip hide the formats and write the one that was chosen last.
    void displayRelevantOptions() override;
    void awakeFromNib() override;
    void filesAdded() override { splitPointProblem_.clear(); }

    Outlets outlets() const override;
    WorkPlan workPlan() const override;
    /// What the selected command does and will ask for; of a split whose file could not be read, ahead of it why not.
    QString aboutCommand() const;

    /// Stays until other names are entered: the lists that a report makes for itself do too.
    std::optional<QStringList> names;

    // Outlets.
    std::shared_ptr<Matrix> shntoolCommandMatrix;
    std::shared_ptr<Matrix> outputFormatMatrix;
    std::shared_ptr<Matrix> shnLenMatrix;
    std::shared_ptr<TextField> outputFormatText = std::make_shared<TextField>(TextField::labelStyle());
    std::shared_ptr<Button> namesButton = std::make_shared<Button>();

private:
    QString command() const;
    QString format() const;
    QString lenType() const;
    /// Where a command writes, and what.
    struct Writing
    {
        QString format;
        QString folder;
    };
    /// Reads the format, then asks for the folder; nothing where that was dismissed.
    std::optional<Writing> chooseWriting() const;
    template <class Task> std::shared_ptr<Task> made(const QStringList& arguments) const;
    template <class Task> void queueEach(const QString& command, const QString& title);
    void completeNames(const QStringList& files);
    void queueLenByDisc(const QStringList& files, int width);

    std::shared_ptr<TrackNameInputController> trackNamesWindow_;
    QString splitPointProblem_;
};

} // namespace zolt
