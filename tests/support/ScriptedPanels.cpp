#include "support/ScriptedPanels.h"

#include "platform/controls/Window.h"

#include <gtest/gtest.h>

namespace zolt::test {

using namespace Qt::StringLiterals;

ScriptedPanels::ScriptedPanels()
{
    installPanels(this);
}

ScriptedPanels::~ScriptedPanels()
{
    installPanels(nullptr);
    EXPECT_TRUE(alertAnswers_.empty()) << "an alert that was answered was not shown";
    EXPECT_TRUE(openAnswers_.empty()) << "an open panel that was answered was not shown";
    EXPECT_TRUE(saveAnswers_.empty()) << "a save panel that was answered was not shown";
    EXPECT_TRUE(modalAnswers_.empty()) << "a modal window that was answered was not shown";
}

void ScriptedPanels::answerAlert(int reply)
{
    const std::lock_guard guard(mutex_);
    alertAnswers_.push_back(reply);
}

void ScriptedPanels::answerOpenPanel(std::optional<QStringList> paths)
{
    const std::lock_guard guard(mutex_);
    openAnswers_.push_back(std::move(paths));
}

void ScriptedPanels::answerSavePanel(OptionalText path)
{
    const std::lock_guard guard(mutex_);
    saveAnswers_.push_back(std::move(path));
}

void ScriptedPanels::answerModal(std::function<void(Window&)> person)
{
    const std::lock_guard guard(mutex_);
    modalAnswers_.push_back(std::move(person));
}

std::vector<ShownAlert> ScriptedPanels::alerts() const
{
    const std::lock_guard guard(mutex_);
    return alerts_;
}

std::vector<OpenPanelRequest> ScriptedPanels::openRequests() const
{
    const std::lock_guard guard(mutex_);
    return openRequests_;
}

std::vector<SavePanelRequest> ScriptedPanels::saveRequests() const
{
    const std::lock_guard guard(mutex_);
    return saveRequests_;
}

int ScriptedPanels::modalRuns() const
{
    const std::lock_guard guard(mutex_);
    return modalRuns_;
}

/// Called with the mutex held. @param answer  the one for a dismissed panel
template <class Answer> Answer ScriptedPanels::next(std::deque<Answer>& answers, Answer answer, const QString& question)
{
    if (answers.empty()) {
        ADD_FAILURE() << "a question that the test does not answer: " << question.toStdString();
    } else {
        answer = std::move(answers.front());
        answers.pop_front();
    }
    return answer;
}

int ScriptedPanels::runAlert(const QString& title, const QString& message, const QString& defaultButton,
                             const QString& alternateButton, const QString& otherButton)
{
    QStringList buttons{defaultButton, alternateButton, otherButton};
    buttons.removeAll(QString());
    const std::lock_guard guard(mutex_);
    alerts_.push_back({title, message, buttons});
    return next(alertAnswers_, int(alertReply::otherButton), title + u' ' + message);
}

std::optional<QStringList> ScriptedPanels::openPanel(const OpenPanelRequest& request)
{
    const std::lock_guard guard(mutex_);
    openRequests_.push_back(request);
    return next(openAnswers_, {}, u"open panel "_s + request.title);
}

OptionalText ScriptedPanels::savePanel(const SavePanelRequest& request)
{
    const std::lock_guard guard(mutex_);
    saveRequests_.push_back(request);
    return next(saveAnswers_, {}, u"save panel "_s + request.fileName);
}

void ScriptedPanels::runModalForWindow(Window& window)
{
    std::function<void(Window&)> person;
    int outerRuns = 0;
    {
        const std::lock_guard guard(mutex_);
        person = next(modalAnswers_, {}, u"modal window "_s + window.title());
        outerRuns = modalRuns_++;
    }
    if (person) person(window); // unlocked: a person may ask for more panels
    const std::lock_guard guard(mutex_);
    EXPECT_TRUE(!person || modalRuns_ == outerRuns) << "the modal run would never end";
    modalRuns_ = outerRuns;
}

void ScriptedPanels::stopModal()
{
    const std::lock_guard guard(mutex_);
    if (modalRuns_ > 0) --modalRuns_;
}

} // namespace zolt::test
