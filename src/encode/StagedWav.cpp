#include "encode/StagedWav.h"

#include "encode/EncodeCoreAudioSync.h"
#include "encode/TemporaryFile.h"
#include "shell/Util.h"

namespace zolt {

using namespace Qt::StringLiterals;

void StagedWav::setUpStaged(ZOLTTaskQueue* queue, const QString& fileName, const QString& outputPath)
{
    setUpThreadTask(queue);
    fileName_ = fileName;
    outputPath_ = outputPath;
    showTitle(path::lastComponent(fileName));
}

QString StagedWav::sourceType() const
{
    return path::extension(fileName_).toUpper();
}

QString StagedWav::outputFile(const QString& extension) const
{
    return path::inFolderWithExtension(fileName_, outputPath_, extension);
}

QString StagedWav::temporaryWav() const
{
    return Util::generateTempFileNameExtension(outputPath_, u"wav"_s);
}

void StagedWav::convert(const QString& from, const QString& to, uint32_t formatType, uint32_t fileType)
{
    EncodeCoreAudioSync::initEncodeWithTaskFileNameOutputFileFormatTypeFileType(shared_from_this(), from, to,
                                                                                formatType, fileType)
        ->doEncodeCall();
}

QString StagedWav::convertToWav(const QString& source)
{
    const QString temporary = temporaryWav();
    convert(source, temporary, formatId::LinearPcm, fileTypeId::Wave);
    return temporary;
}

QString StagedWav::convertToAiff(const QString& wav)
{
    const QString target = outputFile(u"aiff"_s);
    convert(wav, target, formatId::LinearPcm, fileTypeId::Aiff);
    return target;
}

QString StagedWav::convertSHNToWav(const QString& source)
{
    const QString temporary = temporaryWav();
    // "always": the temporary file exists already.
    return decodeWith(
        u"shntool"_s, temporary,
        {u"conv"_s, u"-P"_s, u"pct"_s, u"-O"_s, u"always"_s, u"-o"_s, u"wav"_s, u"-n"_s, temporary, source},
        &StagedWav::processSHNToWavTaskOutput);
}

QString StagedWav::convertFLACToWav(const QString& source)
{
    const QString temporary = temporaryWav();
    return decodeWith(u"flac"_s, temporary, {u"-d"_s, source, u"-o"_s, temporary, u"-f"_s},
                      &StagedWav::processFLACToWavTaskOutput);
}

QString StagedWav::convertAPEToWav(const QString& source)
{
    const QString temporary = temporaryWav();
    return decodeWith(u"mac"_s, temporary, {source, temporary, u"-d"_s}, &StagedWav::processAPEToWavTaskOutput);
}

QString StagedWav::decodeWith(const QString& tool, const QString& temporary, const QStringList& arguments,
                              void (StagedWav::*parser)(const OptionalText&))
{
    TemporaryFile made(temporary); // goes where the tool cannot be started or its text cannot be read
    runTool({.tool = tool,
             .arguments = arguments,
             .parser = [this, parser](const OptionalText& output) { (this->*parser)(output); },
             .stopAt = ToolCall::StopAt::Nothing,
             .afterwards = ToolCall::Afterwards::WaitAndTerminate});
    return made.release();
}

void StagedWav::processSHNToWavTaskOutput(const OptionalText& output)
{
    ConsoleGrammar::shnToWavDecoding.follow(output, *this);
}

void StagedWav::processFLACToWavTaskOutput(const OptionalText& output)
{
    ConsoleGrammar::flacToWav.follow(output, *this);
}

void StagedWav::processAPEToWavTaskOutput(const OptionalText& output)
{
    ConsoleGrammar::apeToWav.follow(output, *this);
}

} // namespace zolt
