// The sub-commands: one table, a row for each.
#pragma once

#include "app/batch/BatchOptions.h"
#include "engine/Run.h"

#include <functional>

namespace zolt {

class BaseTab;
class Program;

namespace batch {

/// What a command that works at once has done.
struct Done
{
    QString text;             ///< to be printed
    std::vector<RunRow> rows; ///< one for each file; all have ended
    QStringList faults;       ///< sentences about files that failed
};

/// How a sub-command drives its tab.
struct BatchCommand
{
    CommandSyntax syntax;
    /// Sets the tab's controls as the options say. @return the tab
    /// @throws UsageError for options that cannot be followed
    std::function<BaseTab&(Program&, const BatchOptions&)> setUp;
    /// What the tab has to say of the files once they have entered; empty for nothing. None for a tab that says
    /// nothing.
    std::function<QString(const BaseTab&)> note = {};
    /// The text that the command prints in place of being pressed; none for a command that is pressed.
    std::function<QString(const BaseTab&)> answer = {};
    /// Sets what depends on the files, once they have entered. None where nothing does.
    /// @return false if a person has thought better of it @throws UsageError
    std::function<bool(BaseTab&, const BatchOptions&)> ready = {};
    /// Does the work of a tab without tasks, in place of being pressed; none for a command that is pressed.
    /// @param goesOn  asked ahead of each file
    std::function<Done(BaseTab&, const BatchOptions&, const std::function<bool()>& goesOn)> atOnce = {};
};

const std::vector<BatchCommand>& batchCommands();

/// What the parser needs of the table.
std::vector<CommandSyntax> batchSyntax();

/// The row of that name, which must be one of the table's.
const BatchCommand& batchCommand(const QString& name);

} // namespace batch
} // namespace zolt
