// The common part of the tasks for shntool's join, pad, strip and trim: its progress on the row.
#pragma once

#include "engine/ConsoleGrammar.h"
#include "engine/ZOLTAsyncNSTask.h"

namespace zolt {

/// Shows what the console says, and keeps it for the report of a failure.
class SHNToolProgressTask : public ZOLTAsyncNSTask
{
public:
    void processTaskOutput(const OptionalText& output) override;
    void cleanup() override;

    /// The file in work, as each class tells it.
    const QString& fileName() const { return fileName_; }

protected:
    /// How the head of a line names the file in work.
    struct FileNaming
    {
        QStringList heads; ///< one of them, and "] (", must be there
        QString end;       ///< what stands behind the name
    };

    explicit SHNToolProgressTask(const ConsoleGrammar& grammar) : grammar_(grammar) {}
    /// @param name  what the row says while it waits
    void setUpProgressTask(ZOLTTaskQueue* queue, const QString& launchPath, const QStringList& arguments,
                           const QString& name);
    /// Shows the name of the file that a head names, if it does. @return the name, absent where there is none
    OptionalText showFileName(const QString& text, const FileNaming& naming) const;

    /// Hook before a piece is read. @param text  without backspaces at its ends
    virtual void lookAtHead(const QString&) {}
    /// What {subject} in the status stands for.
    virtual QString subject() const { return {}; }

    QString fileName_;

private:
    const ConsoleGrammar& grammar_;
};

} // namespace zolt
