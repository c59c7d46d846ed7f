#include "app/batch/BatchCommands.h"

#include "app/Program.h"
#include "decode/DecodeTab.h"
#include "shell/Constants.h"

#include <algorithm>

namespace zolt::batch {

using namespace Qt::StringLiterals;

namespace {

OptionSyntax outOption()
{
    return {u"out"_s, u"DIR"_s, {}, u"writes into DIR (otherwise beside each source)"_s};
}

OptionSyntax deleteOption()
{
    return {u"delete-originals"_s, {}, {}, u"deletes each source after its task has succeeded"_s};
}

QString formatOf(const BatchOptions& options)
{
    return options.has(u"format"_s) ? options.value(u"format"_s) : Constants::WAV;
}

BaseTab& setUpDecode(Program& program, const BatchOptions& options)
{
    DecodeTab& tab = program.decodeTab();
    tab.outputFormatMatrix->selectTitle(formatOf(options));
    tab.sourceDecodeButton->setState(!options.has(u"out"_s));
    tab.decodeFlacThroughErrors->setState(options.has(u"through-errors"_s));
    tab.flacKeepForeignMetadataButton->setState(options.has(u"keep-foreign-metadata"_s));
    tab.deleteOriginalsButton->setState(options.has(u"delete-originals"_s));
    return tab;
}

QString decodeOutput(const QString& file, const BatchOptions& options)
{
    const QString folder = options.has(u"out"_s) ? options.value(u"out"_s) : path::deletingLastComponent(file);
    return DecodeTab::outputPath(file, folder, formatOf(options));
}

BatchCommand decodeCommand()
{
    return {.syntax =
                {u"decode"_s,
                 u"turns compressed audio files into WAV or AIFF files"_s,
                 {{u"format"_s, u"FORMAT"_s, {Constants::WAV, Constants::AIFF}, u"the output format (otherwise WAV)"_s},
                  outOption(),
                  {u"through-errors"_s, {}, {}, u"FLAC: goes on behind a damaged place"_s},
                  {u"keep-foreign-metadata"_s, {}, {}, u"FLAC: restores the chunks kept of the first source"_s},
                  deleteOption()}},
            .setUp = setUpDecode,
            .handles = [](const QString& file) { return DecodeTab::decodes(path::extension(file).toUpper()); },
            .output = decodeOutput};
}

} // namespace

const std::vector<BatchCommand>& batchCommands()
{
    static const std::vector<BatchCommand> commands{decodeCommand()};
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
