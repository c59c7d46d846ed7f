// The preferences window.
#pragma once

#include "platform/controls/Button.h"
#include "platform/controls/Matrix.h"
#include "platform/controls/Stepper.h"
#include "platform/controls/TabView.h"
#include "platform/controls/TextField.h"
#include "platform/controls/Toolbar.h"
#include "platform/controls/Window.h"
#include "shell/Outlet.h"

#include <memory>

namespace zolt {

/// Two panes behind a toolbar. Each control saves what a person sets at once, ahead of its action. Main thread.
class PreferencesController : public ToolbarDelegate
{
public:
    /// Loads the window; the default settings must be registered.
    PreferencesController();
    ~PreferencesController() override;
    PreferencesController(const PreferencesController&) = delete;
    PreferencesController& operator=(const PreferencesController&) = delete;

    // Outlets.
    std::shared_ptr<Stepper> maxThreadsStepper;
    std::shared_ptr<TextField> maxThreadsStepperText = std::make_shared<TextField>(TextField::labelStyle());
    std::shared_ptr<TextField> shnlenTrackListingFormat = std::make_shared<TextField>();
    std::shared_ptr<TextField> currentFormat = std::make_shared<TextField>(TextField::labelStyle());
    /// What becomes of a file that is deleted: gone for good, or in the trash.
    std::shared_ptr<Matrix> trashOrDelete;
    /// One on each pane, for the settings of that pane.
    std::shared_ptr<Button> restoreGeneralButton = std::make_shared<Button>();
    std::shared_ptr<Button> restoreMetadataButton = std::make_shared<Button>();
    /// What stands against the file of the settings; empty if nothing.
    std::shared_ptr<TextField> settingsNote = std::make_shared<TextField>(TextField::labelStyle());
    Outlets outlets() const;

    /// Fills the preview.
    void initData();
    /// Readies the window's toolbar once the interfaces are loaded.
    /// A saved limit that would start no task at all is replaced for this run.
    void initToolbar();
    QStringList toolbarDefaultItemIdentifiers(const Toolbar& toolbar) override;
    QStringList toolbarAllowedItemIdentifiers(const Toolbar& toolbar) override;
    QStringList toolbarSelectableItemIdentifiers(const Toolbar& toolbar) override;
    std::shared_ptr<ToolbarItem> toolbarItemForItemIdentifierWillBeInsertedIntoToolbar(Toolbar& toolbar,
                                                                                       const QString& identifier,
                                                                                       bool inserted) override;
    /// Brings the pane of that item to the front and fits the window to it.
    void showPreferencesTab(const ToolbarItem& item);
    /// Tells everybody how many tasks may run side by side.
    void maxThreadsChanged(Sender sender);
    /// A person has typed: where it was the format, the preview follows.
    void controlTextDidChange(const Control& control);
    const std::shared_ptr<TabView>& preferencesTab() const { return preferencesTab_; }
    void setPreferencesTab(const std::shared_ptr<TabView>& tab) { preferencesTab_ = tab; }
    /// Fits the window's height to the pane in front; its top edge stays.
    void resizePreferencesPane();
    /// In units; 0.0 without a toolbar that can be seen.
    static double toolbarHeightForWindow(const Window& window);
    /// Puts the settings of one pane back to what they are without a person's choice, and saves that.
    void restoreGeneral();
    void restoreMetadata();

    void showWindow();
    const std::shared_ptr<Window>& window() const { return window_; }

    /// Saves what becomes of deleted files and tells everybody, whoever shows the setting. Main thread.
    /// @param index  of the choice: 0 for good, 1 to the trash
    static void setDeletion(int index);
    /// The notification that what becomes of deleted files is another thing now. Main thread.
    static inline const QString deletionChanged = QStringLiteral("deletionChanged");

    /// The most tasks that can be asked for: the number of processors, and 8 at least.
    static int mostThreads();

private:
    void bindControls();
    void showMaxThreads(int tasks);
    void showDeletion();
    void showPreview();
    void showComplaint();

    std::shared_ptr<TabView> preferencesTab_ = std::make_shared<TabView>();
    std::shared_ptr<Toolbar> toolbar_;
    std::shared_ptr<Window> window_ = std::make_shared<Window>();
};

} // namespace zolt
