// Asks how many characters are to be cut off the selected lines, and at which end, modally.
#pragma once

#include "platform/controls/Matrix.h"
#include "platform/controls/TextField.h"
#include "platform/controls/Window.h"
#include "shntool/TrimCharsObject.h"

#include <optional>

namespace zolt {

/// Main thread.
class ZOLTTrimCharsPanel
{
public:
    /// The field's text has changed: keeps its number. What goes wrong makes both 0.
    void controlTextDidChange();
    /// Ends the run with nothing.
    void cancel(Sender sender);
    /// Ends the run with what was chosen.
    void ok(Sender sender);
    /// Shows the panel and waits for its end. Kept: a number that was never edited counts as 0.
    /// @return nothing if the panel was cancelled
    std::optional<TrimCharsObject> runPanel();

    /// The panel's window; none until the panel has run once.
    const std::shared_ptr<Window>& panel() const { return panel_; }

    // What the interface shows.
    const std::shared_ptr<Matrix> positionMatrix =
        std::make_shared<Matrix>(1, 2, QStringList{QStringLiteral("From the start"), QStringLiteral("From the end")});
    const std::shared_ptr<TextField> numberField = std::make_shared<TextField>();

private:
    void loadPanel();
    void endRun(bool okReturned);

    std::shared_ptr<Window> panel_;
    int number_ = 0;
    bool okReturned_ = false;
};

} // namespace zolt
