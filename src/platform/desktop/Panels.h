// The questions that the program asks a person: alerts, panels for files, modal windows. What shows them is the front
// end's; logic and tests need no window system.
#pragma once

#include "platform/text/Text.h"

#include <optional>

namespace zolt {

class Window;

/// What runAlert answers.
namespace alertReply {
inline constexpr int defaultButton = 1;
inline constexpr int alternateButton = 0;
inline constexpr int otherButton = -1;
} // namespace alertReply

struct OpenPanelRequest
{
    QString title;
    QString prompt; ///< the confirming button's text; empty for the panel's own
    bool canChooseFiles = true;
    bool canChooseDirectories = false;
    bool allowsMultipleSelection = false;
    bool canCreateDirectories = false;
    bool treatsFilePackagesAsDirectories = false;
    QStringList fileTypes; ///< the only extensions to choose from, without a dot, case set aside; empty for all
};

struct SavePanelRequest
{
    OptionalText title; ///< absent for the panel's own
    QString fileName;   ///< the name that is proposed
};

/// Every operation may be called on any thread and returns when the person has answered.
class Panels
{
public:
    virtual ~Panels() = default;

    /// Shows an alert with one to three buttons.
    /// @param alternateButton, otherButton  empty where there is no such button
    /// @return alertReply::defaultButton, alternateButton or otherButton
    virtual int runAlert(const QString& title, const QString& message, const QString& defaultButton,
                         const QString& alternateButton = {}, const QString& otherButton = {}) = 0;

    /// Lets a person choose files or directories. @return the paths; nothing if the panel was dismissed
    virtual std::optional<QStringList> openPanel(const OpenPanelRequest& request) = 0;

    /// Lets a person choose where to save. @return the path; nothing if the panel was dismissed
    virtual OptionalText savePanel(const SavePanelRequest& request) = 0;

    /// Runs the window modally: returns after stopModal(), or when the front end can show no window.
    virtual void runModalForWindow(Window& window) = 0;

    /// Ends the innermost modal run; does nothing if there is none.
    virtual void stopModal() = 0;
};

/// The front end's panels. Where none are installed a question is logged and answered as dismissed: an alert with
/// otherButton, a panel with nothing. Any thread.
Panels& panels();

/// Sets the panels that panels() gives; nullptr for none. The object stays the caller's and outlives its installation.
void installPanels(Panels* panels);

} // namespace zolt
