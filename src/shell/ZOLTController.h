// The application's delegate and the owner of what lives as long as it does.
#pragma once

#include "platform/controls/TabView.h"
#include "platform/controls/TextField.h"
#include "platform/controls/Window.h"
#include "shell/FileIntake.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>

#include <memory>

namespace zolt {

class BaseTab;
class PreferencesController;
class TrackNameInputController;
class ZOLTTaskQueue;

/// Routes files that come from outside, knows what each tab accepts, and decides whether the application may quit.
/// Main thread.
class ZOLTController
{
public:
    enum class TerminateReply { Cancel, Now };

    /// Registers the default settings, once for the program.
    static void initialize();

    ZOLTController();
    ~ZOLTController();
    ZOLTController(const ZOLTController&) = delete;
    ZOLTController& operator=(const ZOLTController&) = delete;

    /// Puts a tab behind those that are there, connects it with this object and wakes it.
    /// @param tab    outlives this object's use
    /// @param label  one of the tabs' constants; decode, encode and checksum are to be the first three in this order
    void addTab(BaseTab& tab, const QString& label);
    /// The interface has been loaded: fills the about tab.
    void awakeFromNib();
    /// Fills the table of tabs, from which on files find their way.
    void applicationDidFinishLaunching();
    void applicationWillFinishLaunching() {}
    void applicationOpenFiles(const QStringList& paths);
    /// Whether a file that reaches a tab directly may enter it.
    /// Any thread. @param label  the tab's
    bool isValidFilePath(const QString& label, const QString& path) const;
    void tabViewDidSelectTabViewItem(const TabViewItem& item);
    ZOLTTaskQueue* taskQueue() const { return taskQueue_.get(); }
    /// The one window for track names, which the tabs that need it share.
    const std::shared_ptr<TrackNameInputController>& trackNameInputController() const
    {
        return trackNameInputController_;
    }
    /// Closing the main window quits.
    void windowWillClose();
    void applicationWillTerminate();
    /// The sender's tag is the index of the tab to bring up.
    void selectTab(Sender sender);
    std::shared_ptr<TabViewItem> selectedTabViewItem() const;
    void showPreferencePanel(Sender sender);
    PreferencesController& preferencesController() const { return *preferencesController_; }
    /// The files at and below the path, without what file managers leave there.
    QStringList getFilesFileManager(const QString& path) const;
    /// Takes files from outside into the tab in front.
    void addFiles(const QStringList& paths);
    /// Has folders and long lists walked beside the main thread from here on; at first they are not.
    void setWalksInBackground(bool walks) { walksInBackground_ = walks; }
    bool walksInBackground() const { return walksInBackground_; }
    bool windowShouldClose() const;
    TerminateReply applicationShouldTerminate() const;

    // Outlets. A tab that was not added is none; what is meant for it goes nowhere.
    std::shared_ptr<TabView> tabView = std::make_shared<TabView>();
    BaseTab* decodeTab = nullptr;
    BaseTab* encodeTab = nullptr;
    BaseTab* checksumTab = nullptr;
    BaseTab* shntoolTab = nullptr;
    BaseTab* fixTab = nullptr;
    BaseTab* utilTab = nullptr;
    BaseTab* tagsTab = nullptr;
    BaseTab* lossyTab = nullptr;
    std::shared_ptr<TextField> buildTextField = std::make_shared<TextField>(TextField::labelStyle());
    std::shared_ptr<TextField> ZoltTitleTextField = std::make_shared<TextField>(TextField::labelStyle());

    /// The upper-case extensions that the tab of this label accepts; none for a tab that takes every file.
    const QSet<QString>* acceptedExtensions(const QString& label) const;
    /// What an empty list of that tab offers to take, in order: those, and M4A where it takes some of them.
    QStringList offeredExtensions(const QString& label) const;
    BaseTab* tabOfLabel(const QString& label) const { return tabMap_.value(label); }
    /// Where the first file of the tab in front lies; empty for an empty list.
    QString folderInFront() const;

private:
    enum TabIndex { DecodeIndex, EncodeIndex, ChecksumIndex };
    void routeEach(const QStringList& paths);
    bool passesFilter(const QString& label, const QString& path) const;
    void routeByExtension(const QString& path);
    void handTo(BaseTab* tab, int index, const QString& path);

    QHash<QString, BaseTab*> tabMap_;
    std::unique_ptr<PreferencesController> preferencesController_;
    const std::shared_ptr<TrackNameInputController> trackNameInputController_;
    std::unique_ptr<ZOLTTaskQueue> taskQueue_;
    const QHash<QString, QSet<QString>> extensionMap_; ///< never changed: read from any thread
    bool walksInBackground_ = false;
    FileIntake intake_;
};

} // namespace zolt
