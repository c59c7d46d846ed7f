// Panels that a test answers beforehand.
#pragma once

#include "platform/desktop/Panels.h"

#include <deque>
#include <functional>
#include <mutex>
#include <vector>

namespace zolt::test {

/// An alert that was shown; buttons in the order default, alternate, other, as many as there were.
struct ShownAlert
{
    QString title;
    QString message;
    QStringList buttons;
};

/// Installed while it lives. Each kind of question takes the oldest answer given for its kind. A question with no
/// answer fails the test and counts as dismissed; so does an answer that nobody asked for, at the end. Any thread.
class ScriptedPanels : public Panels
{
public:
    ScriptedPanels();
    ~ScriptedPanels() override;

    /// @param reply  1 default, 0 alternate, -1 other button
    void answerAlert(int reply);
    /// @param paths  nothing for a dismissed panel
    void answerOpenPanel(std::optional<QStringList> paths);
    void answerSavePanel(OptionalText path);
    /// @param person  what happens while the window runs; it has to end the run by stopModal()
    void answerModal(std::function<void(Window&)> person);

    std::vector<ShownAlert> alerts() const;
    std::vector<OpenPanelRequest> openRequests() const;
    std::vector<SavePanelRequest> saveRequests() const;
    /// How many modal runs are under way.
    int modalRuns() const;

    int runAlert(const QString& title, const QString& message, const QString& defaultButton,
                 const QString& alternateButton, const QString& otherButton) override;
    std::optional<QStringList> openPanel(const OpenPanelRequest& request) override;
    OptionalText savePanel(const SavePanelRequest& request) override;
    void runModalForWindow(Window& window) override;
    void stopModal() override;

private:
    template <class Answer> Answer next(std::deque<Answer>& answers, Answer answer, const QString& question);

    mutable std::mutex mutex_;
    std::deque<int> alertAnswers_;
    std::deque<std::optional<QStringList>> openAnswers_;
    std::deque<OptionalText> saveAnswers_;
    std::deque<std::function<void(Window&)>> modalAnswers_;
    std::vector<ShownAlert> alerts_;
    std::vector<OpenPanelRequest> openRequests_;
    std::vector<SavePanelRequest> saveRequests_;
    int modalRuns_ = 0;
};

} // namespace zolt::test
