// The program's questions where there is no window: answered by options, by a person at a terminal, or with No.
#pragma once

#include "platform/desktop/Panels.h"

namespace zolt::batch {

/// Main thread.
class BatchPanels : public Panels
{
public:
    struct Answers
    {
        bool yes = false;             ///< every confirmation gets its "Yes"
        bool terminal = false;        ///< standard input is one: a confirmation is asked there
        OptionalText file = {};       ///< what a panel for one file gives
        OptionalText savePath = {};   ///< what a panel for saving gives
        int interruptDescriptor = -1; ///< becomes readable when a question is to be given up
    };
    explicit BatchPanels(Answers answers) : answers_(std::move(answers)) {}

    /// An alert with one button is printed to standard error. A confirmation is answered as told above; a dismissed
    /// one, and one that nobody can answer, with the button that is not "Yes".
    int runAlert(const QString& title, const QString& message, const QString& defaultButton,
                 const QString& alternateButton, const QString& otherButton) override;
    std::optional<QStringList> openPanel(const OpenPanelRequest& request) override;
    OptionalText savePanel(const SavePanelRequest& request) override;
    void runModalForWindow(Window&) override {}
    void stopModal() override {}

    /// Whether an alert told an error, after which a command does nothing.
    bool toldError() const { return toldError_; }

private:
    bool confirmed(const QString& question) const;
    bool answeredYes(const QString& question) const;

    const Answers answers_;
    bool toldError_ = false;
};

} // namespace zolt::batch
