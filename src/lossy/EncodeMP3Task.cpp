#include "lossy/EncodeMP3Task.h"

#include "encode/TemporaryFile.h"
#include "lossy/LossyTitles.h"
#include "platform/files/Files.h"
#include "shell/Constants.h"
#include "tags/AACTagsHelper.h"
#include "tags/TagLibTagsHelper.h"

namespace zolt {

using namespace Qt::StringLiterals;

namespace {

using C = Constants;

/// A cancel ends the tools, and only then are tags written.
constexpr ThreadEnd mp3End{.waits = ThreadEnd::Waits::Terminate, .drops = ThreadEnd::Drops::AheadOfRow};

} // namespace

std::shared_ptr<EncodeMP3Task> EncodeMP3Task::initEncodeTaskWithQueueFileNameTypeOutputPathLevel(
    ZOLTTaskQueue* queue, const QString& fileName, const QString& type, const QString& outputPath, int32_t level)
{
    std::shared_ptr<EncodeMP3Task> task(new EncodeMP3Task(mp3End));
    task->type_ = type;
    task->level_ = level;
    task->setUpStaged(queue, fileName, outputPath);
    return task;
}

int EncodeMP3Task::stageCount() const
{
    return sourceType() == C::M4A ? 2 : 1;
}

std::shared_ptr<TagsObject> EncodeMP3Task::getFlacTags() const
{
    return TagLibTagsHelper().tagsForFlacFile(fileName());
}

std::shared_ptr<TagsObject> EncodeMP3Task::getM4ATags() const
{
    return AACTagsHelper().tagsForFile(fileName());
}

void EncodeMP3Task::doStartTask()
{
    beginRow();
    topTextField()->setStringValue(u"Encoding to LAME MP3"_s);
    const QString kind = sourceType();
    std::shared_ptr<TagsObject> tags;
    if (kind == C::FLAC) tags = getFlacTags();
    if (kind == C::M4A) tags = getM4ATags();
    doEncodeCall();
    if (tags) copyTags(*tags); // kept: neither an error nor a cancel is looked at
    stopTask(nullptr);
    deleteSource(fileName());
}

void EncodeMP3Task::doEncodeCall()
{
    const bool converts = sourceType() == C::M4A;
    if (converts) topTextField()->setStringValue(u"Decoding ALAC to Wav"_s);
    const TemporaryFile temporary(converts ? convertALACToWav(fileName()) : QString());
    const QString input = converts ? temporary.path() : fileName();
    topTextField()->setStringValue(u"Encoding to LAME MP3"_s);
    runTool(input);
    if (converts) moveToName(input);
}

QStringList EncodeMP3Task::arguments(const QString& input) const
{
    const QString mode = type_ == lossyTitle::CBR ? u"b"_s : u"V"_s;
    const QString specification = u"cust ext=mp3 lame -%1 %2 - %f"_s.arg(mode).arg(level_);
    // shntool strips "flac" in small letters alone, so another spelling has its output named for it.
    const QString spelling = path::extension(input);
    const bool named = spelling.toUpper() == C::FLAC && spelling != u"flac"_s;
    return {u"conv"_s,
            u"-P"_s,
            u"pct"_s,
            u"-O"_s,
            u"never"_s,
            u"-o"_s,
            specification,
            named ? u"-n"_s : u"-d"_s,
            named ? path::inFolderWithExtension(input, outputPath(), u"mp3"_s) : outputPath(),
            input};
}

void EncodeMP3Task::runTool(const QString& input)
{
    ZOLTThreadTask::runTool({.tool = u"shntool"_s,
                             .arguments = arguments(input),
                             .stopAt = ToolCall::StopAt::Cancel,
                             .afterwards = ToolCall::Afterwards::WaitForAllAndTerminate});
}

/// shntool has named the output after the temporary file. A file that has the right name already stays.
void EncodeMP3Task::moveToName(const QString& temporary) const
{
    moveItem(path::inFolderWithExtension(temporary, outputPath(), u"mp3"_s), output());
}

void EncodeMP3Task::copyTags(const TagsObject& tags)
{
    topTextField()->setStringValue(sourceType() == C::FLAC ? u"Copying FLAC Tags"_s : u"Copying M4A Tags"_s);
    tellInReport(TagLibTagsHelper().writeTagsForMP3FileTagObjectWriteEmptyTags(output(), tags, false));
}

void EncodeMP3Task::processTaskOutput(const OptionalText& output)
{
    ConsoleGrammar::mp3Encode.follow(output, *this);
}

} // namespace zolt
