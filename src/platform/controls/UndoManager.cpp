#include "platform/controls/UndoManager.h"

#include <QScopeGuard>

namespace zolt {

void UndoManager::registerUndo(std::function<void()> work)
{
    std::vector<Step>& steps = isUndoing() ? redo_ : undo_;
    steps.push_back({std::move(work), runningName_});
    if (running_ == Running::Nothing) redo_.clear();
}

void UndoManager::setActionName(const QString& name)
{
    std::vector<Step>& steps = isUndoing() ? redo_ : undo_;
    if (!steps.empty()) steps.back().name = name;
}

void UndoManager::undo()
{
    run(undo_, Running::Undo);
}

void UndoManager::redo()
{
    run(redo_, Running::Redo);
}

void UndoManager::run(std::vector<Step>& from, Running kind)
{
    if (from.empty()) return;
    const Step step = std::move(from.back());
    from.pop_back();
    running_ = kind;
    runningName_ = step.name;
    const auto ended = qScopeGuard([this] {
        running_ = Running::Nothing;
        runningName_.clear();
    });
    step.work();
}

} // namespace zolt
