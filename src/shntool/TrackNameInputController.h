// The window in which track names are typed, pasted or loaded, one a line.
#pragma once

#include "platform/controls/TextView.h"
#include "platform/controls/UndoManager.h"
#include "platform/controls/Window.h"
#include "platform/text/Text.h"

namespace zolt {

/// One for the program, shared by the tabs that need names. What is accepted goes out as
/// Constants::ZOLTTrackNamesEnteredNotification, a QStringList as its object. Main thread.
class TrackNameInputController
{
public:
    TrackNameInputController();
    TrackNameInputController(const TrackNameInputController&) = delete;
    TrackNameInputController& operator=(const TrackNameInputController&) = delete;

    /// Asks for a file. @return its path, or nothing
    OptionalText chooseTrackNamesFile() const;
    /// Puts the names that a chosen file holds into the view. Kept: without a file the view is emptied, and undo brings
    /// the text back. A file that cannot be read is told in the log and leaves the text.
    void loadTrackNamesFromFile(Sender sender);
    /// As that, without asking.
    void loadTrackNamesFromPath(const QString& path);
    bool acceptsFirstResponder() const { return true; }
    /// Replaces the text; undone as "Trim Text".
    void setInputTextString(const QString& text);
    /// Asks how many characters go, and cuts them off the selected lines. Lines that are shorter go whole.
    /// @throws RangeException for a number below 0
    void removeCharactersFromText(Sender sender);
    QString namesText() const { return inputText->string(); }
    /// Replaces the text; undone as "Set Track Name Text".
    void setNames(const QString& names);
    /// Empties the text, which undo does not bring back.
    void clear();
    /// Hides the window and tells all who listen the lines that are not empty.
    void inputOK(Sender sender);
    /// Hides the window; the text stays.
    void inputCancel(Sender sender);

    bool isWindowLoaded() const { return window_ != nullptr; }
    void loadWindow();
    void showWindow(Sender sender);
    /// None until it was loaded.
    const std::shared_ptr<Window>& window() const { return window_; }
    UndoManager& undoManager() { return undoManager_; }

    /// What the interface shows.
    const std::shared_ptr<TextView> inputText = std::make_shared<TextView>();

private:
    void replaceText(const QString& text, const QString& actionName);
    void typed();

    QString standing_;      ///< the text when it was last replaced or typed in
    bool isTyping_ = false; ///< the last step to be undone is typing, which may go on
    std::shared_ptr<Window> window_;
    UndoManager undoManager_;
};

} // namespace zolt
