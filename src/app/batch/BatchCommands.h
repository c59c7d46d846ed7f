// The sub-commands: one table, a row for each.
#pragma once

#include "app/batch/BatchOptions.h"

#include <functional>

namespace zolt {

class BaseTab;
class Program;

namespace batch {

/// How a sub-command drives its tab.
struct BatchCommand
{
    CommandSyntax syntax;
    /// Sets the tab's controls as the options say. @return the tab
    std::function<BaseTab&(Program&, const BatchOptions&)> setUp;
};

const std::vector<BatchCommand>& batchCommands();

/// What the parser needs of the table.
std::vector<CommandSyntax> batchSyntax();

/// The row of that name, which must be one of the table's.
const BatchCommand& batchCommand(const QString& name);

} // namespace batch
} // namespace zolt
