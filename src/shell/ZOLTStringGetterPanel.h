// Asks a person for a line of text, modally.
#pragma once

#include "platform/controls/TextField.h"
#include "platform/controls/Window.h"
#include "platform/text/Text.h"

namespace zolt {

/// Can be run any number of times; its interface is loaded once. Main thread.
class ZOLTStringGetterPanel
{
public:
    virtual ~ZOLTStringGetterPanel() = default;

    /// Shows the panel and waits for its end.
    /// @param title  kept: without effect, the panel always bears its interface's own title
    /// @param message  absent for the one before
    /// @param initialString  what the field holds at first; absent for the text entered before
    /// @return the text entered; nothing if the panel was cancelled
    OptionalText runPanelWithTitleMessageInitialString(const OptionalText& title, const OptionalText& message,
                                                       const OptionalText& initialString);

    /// Ends the run with the text entered.
    void ok(Sender sender);
    /// Ends the run with nothing.
    void cancel(Sender sender);

    const OptionalText& enteredText() const { return enteredText_; }
    virtual void setEnteredText(const OptionalText& text);
    const OptionalText& message() const { return message_; }
    void setMessage(const OptionalText& message);

    /// The field's text has changed: keeps it, key by key. What goes wrong is logged and goes no further.
    /// @param field  the field; none counts as one with no text
    void controlTextDidChange(const TextField* field);

    /// The panel's window; none until the panel has run once.
    const std::shared_ptr<Window>& panel() const { return panel_; }

    // What the interface shows: the message and the field that the text is typed into.
    const std::shared_ptr<TextField> messageText = std::make_shared<TextField>(TextField::labelStyle());
    const std::shared_ptr<TextField> textField = std::make_shared<TextField>();

private:
    void loadPanel();
    void endRun(bool okReturned);

    std::shared_ptr<Window> panel_;
    OptionalText title_; ///< kept: never assigned
    OptionalText message_;
    OptionalText enteredText_;
    bool okReturned_ = false;
};

} // namespace zolt
