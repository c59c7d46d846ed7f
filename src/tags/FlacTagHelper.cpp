#include "tags/FlacTagHelper.h"

#include "engine/NSTaskWrapperSync.h"
#include "platform/desktop/ToolsDirectory.h"
#include "shell/Constants.h"

using namespace Qt::StringLiterals;

namespace zolt {

namespace {

/// Everything that one run printed, trimmed; absent if it is not UTF-8.
OptionalText runMetaflac(const QString& option, const QString& path)
{
    auto wrapper = NSTaskWrapperSync::initWithLaunchPathArguments(toolPath(u"metaflac"_s), {option, path});
    // The tool converts texts from and to the encoding of its locale: under one without UTF-8, or one that is named but
    // not installed, every other script is lost.
    wrapper.environment().insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    const OptionalText text = wrapper.runTask();
    if (!text) return std::nullopt;
    return trimmed(*text, CharacterSet::WhiteSpaceAndNewlines);
}

/// True if a line of the answer is a value of the key. The tool's messages come the same way, and they hold equals
/// signs too; keys are compared as the tool compares them, whatever their case.
bool answersKey(const QString& answer, const QString& key)
{
    return (u'\n' + answer).contains(u'\n' + key + u'=', Qt::CaseInsensitive);
}

} // namespace

std::shared_ptr<AudioFormatObject> FlacTagHelper::getFormatInfo(const QString& path) const
{
    const auto answer = [&](const QString& option) { return textOrEmpty(runMetaflac(option, path)); };
    auto format = std::make_shared<AudioFormatObject>();
    format->setSampleRate(intValue(answer(u"--show-sample-rate"_s)));
    format->setChannels(intValue(answer(u"--show-channels"_s)));
    format->setBitsPerChannel(intValue(answer(u"--show-bps"_s)));
    format->setTotalSamples(longLongValue(answer(u"--show-total-samples"_s)));
    return format;
}

void FlacTagHelper::removeTagForFileTagKey(const QString& path, const QString& key) const
{
    runMetaflac(u"--remove-tag="_s + key, path);
}

void FlacTagHelper::writeTagForFileTagKeyTagValueWriteEmptyTags(const QString& path, const QString& key,
                                                                const OptionalText& value, bool writeEmptyTags) const
{
    const QString text = textOrEmpty(value);
    if (text.isEmpty() && !writeEmptyTags) return;
    removeTagForFileTagKey(path, key);
    runMetaflac(u"--set-tag="_s + key + u'=' + text, path);
}

void FlacTagHelper::writeTagsForFileTagObjectWriteEmptyTags(const QString& path, const TagsObject& tags,
                                                            bool writeEmptyTags) const
{
    const auto write = [&](const QString& key, const OptionalText& value) {
        writeTagForFileTagKeyTagValueWriteEmptyTags(path, key, value, writeEmptyTags);
    };
    write(Constants::TITLE, tags.titleText());
    write(Constants::ARTIST, tags.artistText());
    write(Constants::DATE, tags.dateText());
    write(Constants::ALBUM, tags.albumText());
    write(Constants::DISCNUMBER, tags.discText());
    write(Constants::TRACKNUMBER, tags.trackText());
    write(Constants::GENRE, tags.genreText());
    write(Constants::COMPOSER, tags.composerText());
    write(Constants::COMMENT, tags.commentText());
}

OptionalText FlacTagHelper::tagForFileTagKey(const QString& path, const QString& key) const
{
    const OptionalText answer = runMetaflac(u"--show-tag="_s + key, path);
    if (!answer) return std::nullopt;
    return answersKey(*answer, key) ? splitAt(*answer, u"="_s).constLast() : QString();
}

std::shared_ptr<TagsObject> FlacTagHelper::tagsForFile(const QString& path) const
{
    auto tags = std::make_shared<TagsObject>();
    tags->setTitleText(tagForFileTagKey(path, Constants::TITLE));
    tags->setArtistText(tagForFileTagKey(path, Constants::ARTIST));
    tags->setDateText(tagForFileTagKey(path, Constants::DATE));
    tags->setAlbumText(tagForFileTagKey(path, Constants::ALBUM));
    tags->setDiscText(tagForFileTagKey(path, Constants::DISCNUMBER));
    tags->setTrackText(tagForFileTagKey(path, Constants::TRACKNUMBER));
    tags->setCommentText(tagForFileTagKey(path, Constants::COMMENT));
    tags->setGenreText(tagForFileTagKey(path, Constants::GENRE));
    tags->setComposerText(tagForFileTagKey(path, Constants::COMPOSER));
    return tags;
}

} // namespace zolt
