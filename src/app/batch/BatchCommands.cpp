#include "app/batch/BatchCommands.h"

#include "app/batch/ChecksumCommand.h"
#include "app/batch/DecodeCommand.h"
#include "app/batch/EncodeCommand.h"
#include "app/batch/FixCommand.h"
#include "app/batch/LossyCommand.h"
#include "app/batch/ShntoolCommand.h"
#include "app/batch/TagsCommand.h"
#include "app/batch/UtilCommand.h"

#include <algorithm>

namespace zolt::batch {

namespace {

std::vector<BatchCommand> allCommands()
{
    std::vector<BatchCommand> all{
        decodeCommand(),         encodeCommand(), checksumTestCommand(), checksumCreateCommand(),
        checksumVerifyCommand(), lossyCommand(),  fixCommand(),
    };
    for (const BatchCommand& command : shntoolCommands())
        all.push_back(command);
    for (const BatchCommand& command : utilCommands())
        all.push_back(command);
    for (const BatchCommand& command : tagsCommands())
        all.push_back(command);
    return all;
}

} // namespace

const std::vector<BatchCommand>& batchCommands()
{
    static const std::vector<BatchCommand> commands = allCommands();
    return commands;
}

std::vector<CommandSyntax> batchSyntax()
{
    std::vector<CommandSyntax> syntax;
    for (const BatchCommand& command : batchCommands())
        syntax.push_back(command.syntax);
    return syntax;
}

const BatchCommand& batchCommand(const QString& name)
{
    const auto& commands = batchCommands();
    return *std::find_if(commands.begin(), commands.end(), [&](const auto& each) { return each.syntax.name == name; });
}

} // namespace zolt::batch
