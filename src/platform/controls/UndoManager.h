// What a window can take back.
#pragma once

#include <QString>

#include <functional>
#include <vector>

namespace zolt {

/// Two stacks of steps. Undoing a step runs it; what registers itself meanwhile is how to redo it. Main thread.
class UndoManager
{
public:
    /// Notes how to take back what is done now. A new deed forgets what could be redone.
    void registerUndo(std::function<void()> work);
    /// Names the deed that was registered last, for the menu.
    void setActionName(const QString& name);

    bool isUndoing() const { return running_ == Running::Undo; }
    bool canUndo() const { return !undo_.empty(); }
    bool canRedo() const { return !redo_.empty(); }
    /// Empty where there is nothing to undo, or nothing named.
    QString undoActionName() const { return canUndo() ? undo_.back().name : QString(); }
    QString redoActionName() const { return canRedo() ? redo_.back().name : QString(); }

    /// Takes the last deed back; nothing where there is none.
    void undo();
    /// Does again what was taken back last.
    void redo();

private:
    enum class Running { Nothing, Undo, Redo };
    struct Step
    {
        std::function<void()> work;
        QString name;
    };
    void run(std::vector<Step>& from, Running kind);

    std::vector<Step> undo_;
    std::vector<Step> redo_;
    Running running_ = Running::Nothing;
    QString runningName_;
};

} // namespace zolt
