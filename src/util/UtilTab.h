// The tab of odd jobs, which takes every kind of file.
#pragma once

#include "encode/AudioFormatObject.h"
#include "platform/controls/Button.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/Matrix.h"
#include "platform/controls/ScrollView.h"
#include "platform/controls/TextField.h"
#include "shell/BaseTab.h"
#include "util/DiscSearch.h"

#include <QObject>

namespace zolt {

class UtilTab : public BaseTab
{
public:
    // The titles of the commands.
    static inline const QString extraction = QStringLiteral("CD Extraction");
    static inline const QString renaming = QStringLiteral("Batch Rename");
    static inline const QString replayGain = QStringLiteral("Flac Replay Gain");
    static inline const QString deEmphasis = QStringLiteral("de-emphasis");
    static inline const QString dvdDisc = QStringLiteral("DVD Audio Disc");

    UtilTab();
    ~UtilTab() override { *alive_ = false; }

    void setOneTrack(bool oneTrack) { oneTrackButton->setState(oneTrack); }
    bool oneTrack() const { return oneTrackButton->state(); }
    /// The size that so many seconds of audio take, "15.88 MB".
    static QString parseSizeFromTimeAsStringSampleRateBitDepthNumChannels(double seconds, int sampleRate, int bitDepth,
                                                                          int channels);
    /// Minutes and seconds, "65:09"; hours stay in the minutes.
    static QString parseTimeAsString(double seconds);
    /// With the DVD command selected the whole list is scanned anew.
    void filesAdded() override;
    /// The formats of the rows go too, and the totals are those of the rest.
    void rowsRemoved(const QList<qsizetype>& rows) override;
    /// Reads the format of every file for a DVD; they must match. Files that cannot go on one empty the list, which
    /// `scanNote` tells of. Blocks.
    void findFormatInfo();
    /// The name, and with formats their length, rate and depth.
    QString tableViewObjectValueForTableColumnRow(int column, qsizetype row) const override;
    /// Gives the file table another place on the page, in units.
    void resizeFileTable(const QRectF& frame);
    /// Adds the columns of the formats.
    void growFileTable();
    void shrinkFileTable();
    /// Asks for the prefix of new names, unless one was set. @return nothing if that was cancelled
    OptionalText promptForBatchNameInput() const;
    /// The device of a drive; blocks.
    OptionalText getProvider(const OptionalText& discName) const;
    QString getTrackNumberForExtract(const QStringList& names) const;
    QStringList reNumberCdTracks() const;
    OptionalText discIdForVolumePath(const QString& path) const;
    /// Mounts the disc of a drive again; blocks. Nothing is mounted where there is none. @return true, whatever came of
    /// it
    bool mountDisc(const OptionalText& discName) const;
    /// As mountDisc. @throws InvalidArgumentException without a drive
    bool unMountDisc(const OptionalText& discName) const;
    void executeCommand(Sender sender) override;
    /// Tracks are read in one unbroken run: those behind a gap stay in the list with the rows that are left out.
    void executeCommandWithout(const QList<qsizetype>& rows) override;
    /// Shows what belongs to the command. The second choice of the DVD command in a row deselects it; the first asks.
    void displayRelevantOptions() override;
    void clearFiles() override;

    /// Lists the tracks of the first disc that has any, off the main thread: they come in when the drive has answered,
    /// in place of those of a disc that was listed before. `scanNote` says where there is no drive or no such disc.
    void addTracksOfDisc(Sender sender);
    /// As addTracksOfDisc for these devices.
    void addTracksOfDiscIn(const QStringList& devices);
    /// Has discs read by another than the kernel.
    void setContentsReader(const ContentsReader& reader) { contentsReader_ = reader; }

    Outlets outlets() const override;
    WorkPlan workPlan() const override;
    /// Has files renamed with this prefix without a question; an absent one leaves the question to the command.
    void setPrefix(const OptionalText& prefix) { prefix_ = prefix; }
    /// The title of the selected command; empty where none is.
    QString command() const { return commandMatrix->selectedCell().title; }
    /// Of each listed file, in list order; empty but for the DVD command.
    const std::vector<std::shared_ptr<AudioFormatObject>>& formatObjects() const { return formatObjects_; }

    // Outlets.
    std::shared_ptr<Matrix> commandMatrix;
    std::shared_ptr<Matrix> replayGainMatrix;
    std::shared_ptr<CheckBox> oneTrackButton = std::make_shared<CheckBox>();
    std::shared_ptr<ScrollView> scrollView = std::make_shared<ScrollView>(); ///< holds the file table
    std::shared_ptr<TextField> dvdAudioDiscTime = std::make_shared<TextField>(TextField::labelStyle());
    std::shared_ptr<TextField> dvdAudioDiscSize = std::make_shared<TextField>(TextField::labelStyle());
    std::shared_ptr<TextField> dvdAudioDiscTimeStaticText = std::make_shared<TextField>(TextField::labelStyle());
    std::shared_ptr<TextField> dvdAudioDiscSizeStaticText = std::make_shared<TextField>(TextField::labelStyle());
    std::shared_ptr<Button> tracksOfDiscButton = std::make_shared<Button>();
    std::shared_ptr<TextField> scanNote =
        std::make_shared<TextField>(TextField::labelStyle()); ///< why a list went, or what became of it

private:
    /// One of the commands, by its title.
    struct Command
    {
        QString title;
        void (UtilTab::*work)();
        void (UtilTab::*plan)(WorkPlan& plan) const;
    };
    /// What the extraction tool is told, and what becomes of its files.
    struct Extraction
    {
        QString range;    ///< "1+5"
        QString device;   ///< empty for a disc that is in no drive
        QString discName; ///< names the log
        QString folder;
    };

    static const std::vector<Command>& commands();
    static QStringList commandTitles();
    const Command* chosenCommand() const;
    void hideOptions();
    bool chooseDvd();
    void inAMoment(const std::function<void()>& work);
    void scan();
    void showTotals();
    void giveUpList(const QString& why);
    void listDisc(const FoundDisc& found);
    void runDiskutil(const QStringList& arguments) const;
    QList<qsizetype> rowsBehindGap(const QList<qsizetype>& leftOut) const;
    void planExtraction(WorkPlan& plan) const;
    void planRenaming(WorkPlan& plan) const;
    void planReplayGain(WorkPlan& plan) const;
    void planDeEmphasis(WorkPlan& plan) const;
    void planDvd(WorkPlan& plan) const;
    void extract();
    void queueExtraction(const Extraction& wanted);
    void rename();
    void addReplayGain();
    void removeEmphasis();
    void authorDvd();
    QString tool(const QString& name) const;
    void complain(const QString& message);

    std::shared_ptr<std::atomic<bool>> alive_ =
        std::make_shared<std::atomic<bool>>(true); ///< asked before work is done
    int commandMatrixLastSelectedCell_ = -1;       ///< its index, before the present change; -1 for none
    std::shared_ptr<TableHeader> tableHeader_;     ///< kept while it is off the table
    ContentsReader contentsReader_ = readDiscContents;
    std::vector<std::shared_ptr<AudioFormatObject>> formatObjects_;
    OptionalText prefix_;
    QObject context_; ///< of what happens in a moment; goes with the tab
};

} // namespace zolt
