#include "encode/EncoderTool.h"

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

/// The form of three of them: what it is to do, the source, where to write.
QStringList optionInputOutput(const QString& option, const QString& input, const QString& output)
{
    QStringList arguments;
    if (!option.isEmpty()) arguments += option;
    return arguments << input << u"-o"_s << output;
}

QStringList macArguments(const QString& level, const QString& input, const QString& output)
{
    return {input, output, u"-c"_s + level};
}

} // namespace

const EncoderTool& EncoderTool::flac()
{
    static const EncoderTool tool{u"flac"_s, u"flac"_s, ConsoleGrammar::flacEncode, optionInputOutput};
    return tool;
}

const EncoderTool& EncoderTool::wavpack()
{
    static const EncoderTool tool{u"wavpack"_s, u"wv"_s, ConsoleGrammar::wavpackEncode, optionInputOutput};
    return tool;
}

const EncoderTool& EncoderTool::ttaenc()
{
    static const EncoderTool tool{u"ttaenc"_s, u"tta"_s, ConsoleGrammar::ttaEncode, optionInputOutput};
    return tool;
}

const EncoderTool& EncoderTool::mac()
{
    static const EncoderTool tool{u"mac"_s, u"ape"_s, ConsoleGrammar::apeEncode, macArguments};
    return tool;
}

} // namespace zolt
